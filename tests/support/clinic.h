// A clinic at work: label, institution, dictionaries and a target for its reports. Any box is taken and kept.
#pragma once

#include "reports/report_run.h"
#include "reports/write_back.h"
#include "sheet/procedure_lines.h"
#include "sheet/sheet_fields.h"
#include "sheet/sheet_store.h"
#include "support/report_data.h"
#include "support/sheet_samples.h"

#include <QDir>

namespace vandrel::test {

using namespace Qt::StringLiterals;

struct Clinic : LabelledStation {
    Clinic() : LabelledStation(u"/no/archiver"_s) {
        addReportMasterData(*this);
        data().execute("delete from Paciensek"); // as empty as its counter
        QDir(directory.path()).mkdir(u"target"_s);
        workstation.reportTarget = path(u"target/"_s);
        dialogue.takeAll();
    }
    void store(const SheetFields& fields, int lines) {
        for (int i = 0; i < lines; ++i)
            addProcedureLine(workstation, fields.Azonosito, u"11041"_s, u"1"_s, u"A"_s);
        ASSERT_EQ(storeSheet(workstation, fields).outcome, StoreOutcome::storedAnother);
    }
    ReportOutcome report() {
        dialogue.boxes.clear();
        ReportProgress quiet;
        const QString april = u"2008.04"_s;
        return runReport(workstation, {u"0"_s, april, april, {}}, quiet);
    }
    void release() {
        const QString april = u"2008.04"_s;
        writeBackMarks(workstation, april, april, WriteBack::original, {});
    }
    QByteArray reportBytes() { return fileBytes(path(u"tetN123.amb"_s)); }
    // Text of the only box of the last report; another number of boxes fails the test.
    QString onlyBox() {
        EXPECT_EQ(dialogue.boxes.size(), 1U);
        return dialogue.boxes.empty() ? QString() : dialogue.boxes[0].text;
    }
};

} // namespace vandrel::test
