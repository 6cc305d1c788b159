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
    void theDialogShowsTheNews_data();
    void theDialogShowsTheNews();
    void everyFailureHasItsOwnSentence();
    void itsHeightFitsItsText();
    void itsFrameIsAtTheEdge_data();
    void itsFrameIsAtTheEdge();
    void itsButtonsRequestOpeningAndClosing();
    void eachAnswerBecomesNews_data();
    void eachAnswerBecomesNews();
};

void UpdateDialogTest::theDialogShowsTheNews_data()
{
    QTest::addColumn<UpdateNews>("news");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("buttons");
    const auto row = [](const char *name, const UpdateNews &news, const QStringList &texts,
                        const QStringList &buttons) { QTest::newRow(name) << news << texts << buttons; };
    const QString installed = "Installiert ist Version 1.1.";
    const QString failed = "Die Suche nach Updates ist fehlgeschlagen.";
    const QStringList newer = {"Version 1.2 ist verfügbar.", installed};
    const QStringList notOpened = {"Die Seite ließ sich nicht öffnen.", "https://zeigewerk.example/get"};
    const NewVersion withPage{"1.2", kInstalled, kPage};
    const NewVersion withoutPage{"1.2", kInstalled, std::nullopt};
    const NewVersion withMarkup{"<b>1.2</b>", kInstalled, std::nullopt};
    row("searching", Searching{}, {"Nach Updates wird gesucht …"}, {"Abbrechen"});
    row("up to date", UpToDate{kInstalled}, {"Zeigewerk ist auf dem neuesten Stand.", installed},
        {"Schließen"});
    row("a new version", withPage, newer, {"Später", "Download-Seite öffnen"});
    row("a new version without a page", withoutPage, newer, {"Später"});
    row("a page that does not open", PageNotOpened{kPage}, notOpened, {"Schließen"});
    row("a failure", FeedFailure::TooLarge, {failed, "Die Antwort des Servers ist zu groß."}, {"Schließen"});
    row("markup is text", withMarkup, {"Version <b>1.2</b> ist verfügbar.", installed}, {"Später"});
}

void UpdateDialogTest::theDialogShowsTheNews()
{
    QFETCH(UpdateNews, news);
    UpdateDialog dialog;
    // Nothing of the previous news may remain.
    dialog.setNews(NewVersion{"9", kInstalled, kPage});
    dialog.setNews(news);
    QTEST(shownTexts<QLabel>(dialog), "texts");
    QTEST(shownTexts<QPushButton>(dialog), "buttons");
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

void UpdateDialogTest::everyFailureHasItsOwnSentence()
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

void UpdateDialogTest::itsHeightFitsItsText()
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

void UpdateDialogTest::itsButtonsRequestOpeningAndClosing()
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

void UpdateDialogTest::itsFrameIsAtTheEdge_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void UpdateDialogTest::itsFrameIsAtTheEdge()
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

void UpdateDialogTest::eachAnswerBecomesNews_data()
{
    QTest::addColumn<FeedAnswer>("answer");
    QTest::addColumn<UpdateNews>("expected");
    const auto row = [](const char *name, const FeedAnswer &answer, const UpdateNews &expected) {
        QTest::newRow(name) << answer << expected;
    };
    const UpToDate upToDate{kInstalled};
    const NewVersion withoutPage{"1.2", kInstalled, std::nullopt};
    const QString reversing = QStringLiteral("1.2\u202e\u0007 neu");
    row("failure", FeedFailure::TooSlow, FeedFailure::TooSlow);
    row("no version", std::optional<FeedItem>(), upToDate);
    row("this version", item("1.1", "2.0"), upToDate);
    row("an older version", item("1.1rc1", "2.0"), upToDate);
    row("a newer version", item("1.2", "Zwei"), NewVersion{"Zwei", kInstalled, kPage});
    row("a page that is not allowed", item("1.2", "1.2", "http://zeigewerk.example/get"), withoutPage);
    row("a file as the page", item("1.2", "1.2", "file:///bin/sh"), withoutPage);
    row("a name that reverses the text", item("1.2", reversing), NewVersion{"1.2 neu", kInstalled, kPage});
}

void UpdateDialogTest::eachAnswerBecomesNews()
{
    QFETCH(FeedAnswer, answer);
    QFETCH(UpdateNews, expected);
    QVERIFY(newsOf(answer, kInstalled) == expected);
}

REGISTER_TEST(UpdateDialogTest)
#include "update_dialog_test.moc"
