#include "platform/file_sync.h"

#include "platform/fault.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace vandrel {

namespace {

void syncPath(const QString& path, int flags) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | flags);
    if (file < 0) throw fileFault(errno, path);
    const int error = ::fsync(file) == 0 ? 0 : errno;
    ::close(file);
    // Some file systems cannot sync a folder, and a device has nothing to sync.
    if (error != 0 && error != EINVAL && error != EROFS) throw fileFault(error, path);
}

} // namespace

void syncFile(const QString& path) {
    const QFileInfo file(path);
    if (file.exists() && !file.isFile()) return;
    syncPath(path, 0);
    syncPath(file.absolutePath(), O_DIRECTORY);
}

} // namespace vandrel
