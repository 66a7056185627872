#include "platform/atomic_file.h"

#include <QFileInfo>

#include <cerrno>

#include <unistd.h>

namespace vandrel {

AtomicFile::AtomicFile(const QString& path) : QSaveFile(path) {
    const QFileInfo present(path);
    if (present.isDir()) throw fileFault(EISDIR, path);
    // Renaming over a device would replace it, and over a protected file would ignore its protection.
    if (present.exists() && !present.isFile()) throw fileFault(EACCES, path);
    if (present.exists() && ::access(QFile::encodeName(path).constData(), W_OK) != 0)
        throw fileFault(errno, path);
    setDirectWriteFallback(false);
    errno = 0;
    if (path.isEmpty() || !open(QIODevice::WriteOnly)) throw fileFault(errno != 0 ? errno : EACCES, path);
}

qint64 AtomicFile::writeData(const char* data, qint64 length) {
    errno = 0;
    const qint64 written = QSaveFile::writeData(data, length);
    if (written != length && m_writeError == 0) m_writeError = errno != 0 ? errno : EIO;
    return written;
}

void AtomicFile::check() const {
    if (m_writeError != 0) throw fileFault(m_writeError, fileName());
}

void AtomicFile::keep() {
    errno = 0;
    // commit() flushes too, but does not look at the result.
    if (!flush() && m_writeError == 0) m_writeError = errno != 0 ? errno : EIO;
    if (m_writeError != 0) cancelWriting();
    errno = 0;
    const bool kept = commit();
    if (m_writeError == 0 && !kept) m_writeError = errno != 0 ? errno : EIO;
    check();
}

} // namespace vandrel
