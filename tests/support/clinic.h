// A clinic at work: label, institution, dictionaries and a target for its reports. Any box is taken and kept.
#pragma once

#include "reports/report_run.h"
#include "reports/write_back.h"
#include "sheet/procedure_lines.h"
#include "sheet/sheet_store.h"
#include "support/report_data.h"
#include "support/sheet_samples.h"

#include <QDir>

namespace vandrel::test {

struct Clinic : LabelledStation {
    Clinic() : LabelledStation(QStringLiteral("/no/archiver")) {
        addReportMasterData(*this);
        data().execute("delete from Paciensek"); // as empty as its counter
        QDir(directory.path()).mkdir(QStringLiteral("target"));
        workstation.reportTarget = path(QStringLiteral("target/"));
        dialogue.takeAll();
    }
    void store(const SheetFields& fields, int lines) {
        for (int i = 0; i < lines; ++i)
            addProcedureLine(workstation, fields.Azonosito, QStringLiteral("11041"), QStringLiteral("1"),
                             QStringLiteral("A"));
        ASSERT_EQ(storeSheet(workstation, fields).outcome, StoreOutcome::storedAnother);
    }
    ReportOutcome report() {
        dialogue.boxes.clear();
        ReportProgress quiet;
        const QString april = QStringLiteral("2008.04");
        return runReport(workstation, {QStringLiteral("0"), april, april, {}}, quiet);
    }
    void release() {
        const QString april = QStringLiteral("2008.04");
        writeBackMarks(workstation, april, april, WriteBack::original, {});
    }
    QByteArray reportBytes() { return fileBytes(path(QStringLiteral("tetN123.amb"))); }
    // Text of the only box of the last report; another number of boxes fails the test.
    QString onlyBox() {
        EXPECT_EQ(dialogue.boxes.size(), 1U);
        return dialogue.boxes.empty() ? QString() : dialogue.boxes[0].text;
    }
};

} // namespace vandrel::test
