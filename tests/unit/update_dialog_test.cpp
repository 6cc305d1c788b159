#include "registered_test.h"
#include "updater/update_dialog.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QtMath>

using namespace zeigewerk;

namespace {

const QUrl kPage(QStringLiteral("https://zeigewerk.example/get"));
const QString kInstalled = QStringLiteral("1.1");

template <typename Widget>
QStringList shownTexts(const UpdateDialog &dialog)
{
    QStringList texts;
    for (const Widget *widget : dialog.findChildren<Widget *>()) {
        if (!widget->isHidden())
            texts += widget->text();
    }
    return texts;
}

FeedAnswer item(const char *version, const QString &shown, const char *page = "https://zeigewerk.example/get")
{
    return FeedItem{QString::fromLatin1(version), shown, QString::fromLatin1(page)};
}

} // namespace

class UpdateDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itSays_data();
    void itSays();
    void everyFailureHasItsSentence();
    void itIsAsHighAsItsText();
    void itsFrameIsItsEdge_data();
    void itsFrameIsItsEdge();
    void itTellsWhatIsClicked();
    void answersAreNews_data();
    void answersAreNews();
};

void UpdateDialogTest::itSays_data()
{
    QTest::addColumn<UpdateNews>("news");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("searching") << UpdateNews(Searching{}) << QStringList{"Nach Updates wird gesucht …"}
                               << QStringList{"Abbrechen"};
    QTest::newRow("up to date") << UpdateNews(UpToDate{kInstalled})
                                << QStringList{"Zeigewerk ist auf dem neuesten Stand.",
                                               "Installiert ist Version 1.1."}
                                << QStringList{"Schließen"};
    const QStringList newer = {"Version 1.2 ist verfügbar.", "Installiert ist Version 1.1."};
    QTest::newRow("a new version") << UpdateNews(NewVersion{"1.2", kInstalled, kPage}) << newer
                                   << QStringList{"Später", "Download-Seite öffnen"};
    QTest::newRow("a new version without a page")
        << UpdateNews(NewVersion{"1.2", kInstalled, std::nullopt}) << newer << QStringList{"Später"};
    QTest::newRow("a page that does not open")
        << UpdateNews(PageNotOpened{kPage})
        << QStringList{"Die Seite ließ sich nicht öffnen.", "https://zeigewerk.example/get"}
        << QStringList{"Schließen"};
    QTest::newRow("a failure") << UpdateNews(FeedFailure::TooLarge)
                               << QStringList{"Die Suche nach Updates ist fehlgeschlagen.",
                                              "Die Antwort des Servers ist zu groß."}
                               << QStringList{"Schließen"};
    QTest::newRow("markup is text") << UpdateNews(NewVersion{"<b>1.2</b>", kInstalled, std::nullopt})
                                    << QStringList{"Version <b>1.2</b> ist verfügbar.",
                                                   "Installiert ist Version 1.1."}
                                    << QStringList{"Später"};
}

void UpdateDialogTest::itSays()
{
    QFETCH(UpdateNews, news);
    UpdateDialog dialog;
    // Nothing may be left of what it said before.
    dialog.setNews(NewVersion{"9", kInstalled, kPage});
    dialog.setNews(news);
    QTEST(shownTexts<QLabel>(dialog), "texts");
    QTEST(shownTexts<QPushButton>(dialog), "buttons");
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

void UpdateDialogTest::everyFailureHasItsSentence()
{
    QSet<QString> sentences;
    for (int i = 0; i <= static_cast<int>(FeedFailure::NoProcess); ++i) {
        const QString sentence = detail(static_cast<FeedFailure>(i));
        QVERIFY(sentence.endsWith(u'.'));
        QCOMPARE(sentence.count(QStringLiteral(". ")), 0);
        sentences += sentence;
    }
    QCOMPARE(sentences.size(), static_cast<int>(FeedFailure::NoProcess) + 1);
}

void UpdateDialogTest::itIsAsHighAsItsText()
{
    UpdateDialog dialog;
    dialog.show();
    const int height = dialog.height();
    dialog.setNews(NewVersion{QString(100, u'7') + u' ' + QString(100, u'8'), kInstalled, kPage});
    QVERIFY(dialog.height() > height);
    QCoreApplication::processEvents();
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
    dialog.setNews(Searching{});
    QCOMPARE(dialog.height(), height);
}

void UpdateDialogTest::itTellsWhatIsClicked()
{
    UpdateDialog dialog;
    dialog.setNews(NewVersion{"1.2", kInstalled, kPage});
    dialog.show();
    QSignalSpy opening(&dialog, &UpdateDialog::openingRequested);
    QSignalSpy closing(&dialog, &UpdateDialog::closingRequested);
    const auto buttons = dialog.findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QCOMPARE(opening.size(), 1);
    QCOMPARE(closing.size(), 1);
    QVERIFY(dialog.isVisible());
}

void UpdateDialogTest::itsFrameIsItsEdge_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void UpdateDialogTest::itsFrameIsItsEdge()
{
    QFETCH(double, scale);
    UpdateDialog dialog;
    QImage picture(dialog.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    dialog.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());

    const QRgb frame = dialog.palette().color(QPalette::Mid).rgb();
    const QPoint last(picture.width() - 1, picture.height() - 1);
    const QPoint middle = last / 2;
    for (const QPoint place : {QPoint(0, middle.y()), QPoint(last.x(), middle.y()), QPoint(middle.x(), 0),
                               QPoint(middle.x(), last.y()), QPoint(0, 0), last})
        QCOMPARE(picture.pixel(place), frame);
    QCOMPARE(picture.pixel(2 * qCeil(scale), middle.y()), dialog.palette().color(QPalette::Window).rgb());
}

void UpdateDialogTest::answersAreNews_data()
{
    QTest::addColumn<FeedAnswer>("answer");
    QTest::addColumn<UpdateNews>("expected");
    const UpdateNews upToDate = UpToDate{kInstalled};
    QTest::newRow("failure") << FeedAnswer(FeedFailure::TooSlow) << UpdateNews(FeedFailure::TooSlow);
    QTest::newRow("no version") << FeedAnswer(std::optional<FeedItem>()) << upToDate;
    QTest::newRow("this version") << item("1.1", "2.0") << upToDate;
    QTest::newRow("an older one") << item("1.1rc1", "2.0") << upToDate;
    QTest::newRow("a newer one") << item("1.2", "Zwei") << UpdateNews(NewVersion{"Zwei", kInstalled, kPage});
    QTest::newRow("a page that is not allowed") << item("1.2", "1.2", "http://zeigewerk.example/get")
                                                << UpdateNews(NewVersion{"1.2", kInstalled, std::nullopt});
    QTest::newRow("a file for a page")
        << item("1.2", "1.2", "file:///bin/sh") << UpdateNews(NewVersion{"1.2", kInstalled, std::nullopt});
    QTest::newRow("a name that turns the text around")
        << item("1.2", QStringLiteral("1.2\u202e\u0007 neu"))
        << UpdateNews(NewVersion{"1.2 neu", kInstalled, kPage});
}

void UpdateDialogTest::answersAreNews()
{
    QFETCH(FeedAnswer, answer);
    QFETCH(UpdateNews, expected);
    QVERIFY(newsOf(answer, kInstalled) == expected);
}

REGISTER_TEST(UpdateDialogTest)
#include "update_dialog_test.moc"
