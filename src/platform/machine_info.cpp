#include "platform/machine_info.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QSysInfo>
#include <QThread>

#include <sqlite3.h>
#include <unistd.h>

namespace vandrel {

namespace {

QString known(const QString& text) {
    return text.isEmpty() ? QStringLiteral("ismeretlen") : text;
}

QString processorName() {
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray text = file.readAll();
    for (const QByteArray& line : text.split('\n'))
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).simplified();
    return {};
}

QString megabytes(double bytes) {
    return bytes <= 0 ? QString() : QStringLiteral("%1 MB").arg(bytes / 1'048'576.0, 0, 'f', 0);
}

} // namespace

std::vector<std::pair<QString, QString>> machineInfo(const QString& folder) {
    const double page = static_cast<double>(::sysconf(_SC_PAGESIZE));
    const double memory = page * static_cast<double>(::sysconf(_SC_PHYS_PAGES));
    const double freeMemory = page * static_cast<double>(::sysconf(_SC_AVPHYS_PAGES));
    const QStorageInfo disk(folder);
    const QString cores = QStringLiteral("%1 mag").arg(QThread::idealThreadCount());
    return {
        {QStringLiteral("Számítógép"), known(QSysInfo::machineHostName())},
        {QStringLiteral("Operációs rendszer"), known(QSysInfo::prettyProductName())},
        {QStringLiteral("Rendszermag"),
         known(QSysInfo::kernelType() + QLatin1Char(' ') + QSysInfo::kernelVersion())},
        {QStringLiteral("Processzor"), known(processorName()) + QStringLiteral(" (") +
                                           QSysInfo::currentCpuArchitecture() + QStringLiteral(", ") + cores +
                                           QLatin1Char(')')},
        {QStringLiteral("Memória"), known(megabytes(memory))},
        {QStringLiteral("Szabad memória"), known(megabytes(freeMemory))},
        {QStringLiteral("Programmappa"), QDir::toNativeSeparators(folder)},
        {QStringLiteral("Lemezterület"), known(megabytes(static_cast<double>(disk.bytesTotal())))},
        {QStringLiteral("Szabad lemezterület"), known(megabytes(static_cast<double>(disk.bytesAvailable())))},
        {QStringLiteral("Qt"), QString::fromLatin1(qVersion())},
        {QStringLiteral("SQLite"), QString::fromLatin1(sqlite3_libversion())},
    };
}

} // namespace vandrel
