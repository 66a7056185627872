// Turns the operating system's error numbers into the program's own.
#include "platform/fault.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace vandrel {

Fault fileFault(int errorNumber, const QString& path) {
    const QString name = QDir::toNativeSeparators(path);
    switch (errorNumber) {
    case ENOENT:
        if (!QFileInfo(QFileInfo(path).absolutePath()).isDir())
            return {fault::pathNotFound, u"Az útvonal nem található: %1"_s.arg(name)};
        return {fault::fileNotFound, u"Az állomány nem található: %1"_s.arg(name)};
    case ENOTDIR:
    case ENAMETOOLONG:
    case EINVAL:
    case ELOOP:
        return {fault::pathNotFound, u"Az útvonal nem található: %1"_s.arg(name)};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return {fault::pathAccess, u"Az állomány nem írható: %1"_s.arg(name)};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {fault::diskFull, u"A lemez megtelt: %1"_s.arg(name)};
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
        return {fault::permissionDenied, u"Az állományt más program használja: %1"_s.arg(name)};
    case ENXIO:
    case ENODEV:
    case ENOMEDIUM:
        return {fault::diskNotReady, u"A meghajtó nem áll készen: %1"_s.arg(name)};
    default:
        return {fault::deviceError, u"Be- vagy kiviteli hiba: %1"_s.arg(name)};
    }
}

} // namespace vandrel
