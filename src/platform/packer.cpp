#include "platform/packer.h"

#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr int patienceMilliseconds = 60'000; // a month packs in well under a second
}

ArjPacker::ArjPacker() : ArjPacker(QStandardPaths::findExecutable(u"arj"_s)) {}

ArjPacker::ArjPacker(const QString& program) : m_program(program) {}

ArjPacker::~ArjPacker() {
    waitForFinished();
}

void ArjPacker::start(const QString& folder, const QString& archivePath, const QString& fileName) {
    waitForFinished();
    m_process = std::make_unique<QProcess>();
    m_process->setWorkingDirectory(folder);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardOutputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    // A bare file name in the working folder is stored as a bare name in the archive.
    m_process->start(m_program, {u"a"_s, u"-i"_s, u"-y"_s, archivePath, fileName});
}

bool ArjPacker::endsWithin(int milliseconds) {
    return !m_process || m_process->state() == QProcess::NotRunning ||
           m_process->waitForFinished(milliseconds);
}

bool ArjPacker::waitForFinished() {
    if (!m_process) return false;
    if (m_process->state() != QProcess::NotRunning) m_process->waitForFinished(patienceMilliseconds);
    return m_process->exitStatus() == QProcess::NormalExit && m_process->error() == QProcess::UnknownError &&
           m_process->exitCode() == 0;
}

} // namespace vandrel
