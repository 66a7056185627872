// The target is taken away while the report is made: its box, the report file whole in the working folder,
// the marks as they were set.
#include "clerk.h"

#include "reports/report_run.h"
#include "reports/write_back.h"
#include "support/test_workstation.h"

#include <QDir>

namespace vandrel::test {

namespace {

class Remover : public ReportProgress {
  public:
    Remover(const QString& target, const QString& stage) : m_target(target), m_stage(stage) {}
    void moved(const QString& stage, qint64, qint64) override {
        if (stage == m_stage && QDir(m_target).removeRecursively()) ++removed;
    }
    int removed = 0;

  private:
    QString m_target, m_stage;
};

} // namespace

TEST(RemovedTarget, DuringTheReport) {
    for (const char16_t* stage : {u"Előkészítés: ", u"Kiírás: "}) {
        SCOPED_TRACE(QString::fromUtf16(stage).toStdString());
        TestWorkstation station;
        // A clerk's folder, with the strict dialogue of this test.
        const QTemporaryDir directory;
        prepareClinic(directory.path());
        const auto stored = [&] {
            WillingDialogue willing;
            Workstation typing(directory.path(), willing, station.clock, station.packer);
            Clerk clerk(typing, 7);
            int sheets = 0;
            for (int i = 0; i < 30; ++i)
                sheets += !clerk.storeNext().correction;
            return sheets;
        };
        const int sheets = stored();
        ASSERT_GT(sheets, 10);
        Workstation workstation(directory.path(), station.dialogue, station.clock, station.packer);
        const QString target = directory.filePath(QStringLiteral("target"));
        QDir().mkpath(target);
        workstation.reportTarget = target + u'/';
        const ReportRequest april{
            QStringLiteral("0"), QStringLiteral("2008.04"), QStringLiteral("2008.04"), {}};
        Remover remover(target, QString::fromUtf16(stage));
        station.dialogue.expect(QStringLiteral("A megadott útvonal hibás!"));
        const ReportOutcome outcome = runReport(workstation, april, remover);
        EXPECT_TRUE(station.dialogue.allShown());
        EXPECT_GT(remover.removed, 0);
        EXPECT_FALSE(outcome.complete);
        EXPECT_FALSE(QDir(target).exists()) << "nothing makes the folder anew";

        // The files of the working folder are whole, and what was selected stays marked until it is released.
        const QString report = directory.filePath(QStringLiteral("tet9012.amb"));
        const QByteArray broken = fileBytes(report);
        const QByteArray note = fileBytes(directory.filePath(QStringLiteral("kuldo.txt")));
        Database& data = workstation.files[DataFile::tetdata];
        EXPECT_EQ(firstText(data, "select count(*) from BETEG where JAV='0' and FLOPPY=0"),
                  QStringLiteral("0"));
        EXPECT_EQ(data.quickCheck(), QStringLiteral("ok"));

        QDir().mkpath(target);
        station.dialogue.expect(QStringLiteral("Kész az adatvisszaállítás!"), programTitle,
                                Icon::information);
        writeBackMarks(workstation, april.from, april.to, WriteBack::original, {});
        ReportProgress quiet;
        EXPECT_TRUE(runReport(workstation, april, quiet).complete);
        EXPECT_TRUE(workstation.packer.waitForFinished());
        EXPECT_EQ(fileBytes(report), broken);
        EXPECT_EQ(fileBytes(directory.filePath(QStringLiteral("kuldo.txt"))), note);
        EXPECT_EQ(fileBytes(target + QStringLiteral("/kuldo.txt")), note);
    }
}

} // namespace vandrel::test
