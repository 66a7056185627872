// A workstation on a folder of its own, for tests: a dialogue that fails the test on every box that was not
// expected, a clock that does not move, a packer that can be told to be missing.
#pragma once

#include "foundation/workstation.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <deque>
#include <functional>
#include <vector>

namespace vandrel::test {

// The boxes a test expects, in order: text, title, icon and the answer to give.
class ExpectedDialogue : public Dialogue {
  public:
    ~ExpectedDialogue() override;

    void expect(const QString& text, const QString& title = programTitle, Icon icon = Icon::critical);
    void expectQuestion(const QString& text, Answer answer, const QString& title = programTitle,
                        Icon icon = Icon::question);
    // True when every expected box was shown; a left-over one fails the test at the end in any case.
    bool allShown() const { return m_expected.empty(); }
    // From here on any box is taken with yes or OK, and boxes keeps it.
    void takeAll() { m_takesAll = true; }
    std::vector<Message> boxes;

    Answer show(const Message& message) override;

  private:
    struct Expected {
        Message message;
        Answer answer;
    };
    std::deque<Expected> m_expected;
    bool m_takesAll = false;
};

class TestWorkstation {
  public:
    // Fresh data files (no sample data), 2008.04.03. 14:05:09; the machine's archiver unless one is named.
    explicit TestWorkstation(const QString& archiver = {});

    QTemporaryDir directory;
    ExpectedDialogue dialogue;
    FixedClock clock{QDateTime(QDate(2008, 4, 3), QTime(14, 5, 9))};
    ArjPacker packer;
    Workstation workstation;

    Database& data() { return workstation.files[DataFile::tetdata]; }
    Database& dictionaries() { return workstation.files[DataFile::tetmod]; }
    QString path(const QString& name) const { return directory.filePath(name); }
};

// All bytes of a file; a missing file fails the test.
QByteArray fileBytes(const QString& path);
// One value of the first row of a question; null QString for Null or no row.
QString firstText(Database& database, const std::string& sql);
// A new file of these bytes; a failure fails the test.
void makeFile(const QString& path, const QByteArray& bytes = {});
// Number of the fault that the action raises; 0 when it raises none.
int faultNumberOf(const std::function<void()>& action);

} // namespace vandrel::test

// Readable failures of string comparisons.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
