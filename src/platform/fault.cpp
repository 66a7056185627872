// Turns the operating system's error numbers into the program's own.
#include "platform/fault.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace vandrel {

Fault fileFault(int errorNumber, const QString& path) {
    const QString name = QDir::toNativeSeparators(path);
    switch (errorNumber) {
    case ENOENT:
        if (!QFileInfo(QFileInfo(path).absolutePath()).isDir())
            return {fault::pathNotFound, QStringLiteral("Az útvonal nem található: %1").arg(name)};
        return {fault::fileNotFound, QStringLiteral("Az állomány nem található: %1").arg(name)};
    case ENOTDIR:
    case ENAMETOOLONG:
    case EINVAL:
    case ELOOP:
        return {fault::pathNotFound, QStringLiteral("Az útvonal nem található: %1").arg(name)};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return {fault::pathAccess, QStringLiteral("Az állomány nem írható: %1").arg(name)};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {fault::diskFull, QStringLiteral("A lemez megtelt: %1").arg(name)};
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
        return {fault::permissionDenied, QStringLiteral("Az állományt más program használja: %1").arg(name)};
    case ENXIO:
    case ENODEV:
    case ENOMEDIUM:
        return {fault::diskNotReady, QStringLiteral("A meghajtó nem áll készen: %1").arg(name)};
    default:
        return {fault::deviceError, QStringLiteral("Be- vagy kiviteli hiba: %1").arg(name)};
    }
}

} // namespace vandrel
