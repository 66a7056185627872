#include "support/test_workstation.h"

#include <QFile>

namespace vandrel::test {

namespace {

QString prepared(const QTemporaryDir& directory) {
    createProgramFolder(directory.path());
    return directory.path();
}

} // namespace

ExpectedDialogue::~ExpectedDialogue() {
    for (const Expected& left : m_expected)
        ADD_FAILURE() << "expected box was not shown: " << left.message.text.toStdString();
}

void ExpectedDialogue::expect(const QString& text, const QString& title, Icon icon) {
    m_expected.push_back({{text, title, icon, Buttons::ok}, Answer::ok});
}

void ExpectedDialogue::expectQuestion(const QString& text, Answer answer, const QString& title, Icon icon) {
    m_expected.push_back({{text, title, icon, Buttons::yesNo}, answer});
}

Answer ExpectedDialogue::show(const Message& message) {
    if (m_takesAll) {
        boxes.push_back(message);
        return message.buttons == Buttons::yesNo ? Answer::yes : Answer::ok;
    }
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected box: " << message.title.toStdString() << ": "
                      << message.text.toStdString();
        return message.buttons == Buttons::ok ? Answer::ok : Answer::no;
    }
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    EXPECT_EQ(message.text.toStdString(), expected.message.text.toStdString());
    EXPECT_EQ(message.title.toStdString(), expected.message.title.toStdString())
        << message.text.toStdString();
    EXPECT_EQ(message.icon, expected.message.icon) << message.text.toStdString();
    EXPECT_EQ(message.buttons, expected.message.buttons) << message.text.toStdString();
    return expected.answer;
}

TestWorkstation::TestWorkstation(const QString& archiver)
    : packer(archiver.isEmpty() ? ArjPacker() : ArjPacker(archiver)),
      workstation(prepared(directory), dialogue, clock, packer) {}

QByteArray fileBytes(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read " << path.toStdString();
        return {};
    }
    return file.readAll();
}

QString firstText(Database& database, const std::string& sql) {
    Query query = database.query(sql);
    return query.next() && !query.isNull(0) ? query.text(0) : QString();
}

void makeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << "cannot write " << path.toStdString();
}

int faultNumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Fault& fault) {
        return fault.number();
    }
    return 0;
}

} // namespace vandrel::test
