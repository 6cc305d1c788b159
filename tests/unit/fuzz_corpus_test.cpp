// Runs the fuzz targets on their examples, and on every input that fuzzing has found.

#include "fuzz/targets.h"
#include "registered_test.h"

#include <QDir>
#include <QTest>

using namespace zeigewerk;

namespace {

const QDir kCorpus(QStringLiteral(ZEIGEWERK_FUZZ_CORPUS));

} // namespace

class FuzzCorpusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTargetHasExamplesAndEveryExampleATarget();
    void noExampleBreaksItsTarget_data();
    void noExampleBreaksItsTarget();
};

void FuzzCorpusTest::everyTargetHasExamplesAndEveryExampleATarget()
{
    QStringList names;
    for (const fuzz::Target &target : fuzz::kTargets) {
        names += QLatin1String(target.name);
        QVERIFY2(!QDir(kCorpus.filePath(names.back())).isEmpty(QDir::Files), target.name);
    }
    names.sort();
    QCOMPARE(kCorpus.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name), names);
}

void FuzzCorpusTest::noExampleBreaksItsTarget_data()
{
    QTest::addColumn<const fuzz::Target *>("target");
    QTest::addColumn<QString>("path");
    for (const fuzz::Target &target : fuzz::kTargets) {
        const QDir folder(kCorpus.filePath(QLatin1String(target.name)));
        for (const QString &name : folder.entryList(QDir::Files))
            QTest::addRow("%s/%s", target.name, qPrintable(name)) << &target << folder.filePath(name);
    }
}

void FuzzCorpusTest::noExampleBreaksItsTarget()
{
    QFETCH(const fuzz::Target *, target);
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray input = file.readAll();
    // A crash or a failed check ends the process.
    target->run(
        {reinterpret_cast<const std::uint8_t *>(input.constData()), static_cast<std::size_t>(input.size())});
}

REGISTER_TEST(FuzzCorpusTest)
#include "fuzz_corpus_test.moc"
