#include "platform/machine_info.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QSysInfo>
#include <QThread>

#include <sqlite3.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QString known(const QString& text) {
    return text.isEmpty() ? u"ismeretlen"_s : text;
}

QString processorName() {
    QFile file(u"/proc/cpuinfo"_s);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray text = file.readAll();
    for (const QByteArray& line : text.split('\n'))
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).simplified();
    return {};
}

QString megabytes(double bytes) {
    return bytes <= 0 ? QString() : u"%1 MB"_s.arg(bytes / 1'048'576.0, 0, 'f', 0);
}

} // namespace

std::vector<std::pair<QString, QString>> machineInfo(const QString& folder) {
    const double page = static_cast<double>(::sysconf(_SC_PAGESIZE));
    const double memory = page * static_cast<double>(::sysconf(_SC_PHYS_PAGES));
    const double freeMemory = page * static_cast<double>(::sysconf(_SC_AVPHYS_PAGES));
    const QStorageInfo disk(folder);
    const QString cores = u"%1 mag"_s.arg(QThread::idealThreadCount());
    return {
        {u"Számítógép"_s, known(QSysInfo::machineHostName())},
        {u"Operációs rendszer"_s, known(QSysInfo::prettyProductName())},
        {u"Rendszermag"_s, known(QSysInfo::kernelType() + ' '_L1 + QSysInfo::kernelVersion())},
        {u"Processzor"_s,
         known(processorName()) + u" ("_s + QSysInfo::currentCpuArchitecture() + u", "_s + cores + ')'_L1},
        {u"Memória"_s, known(megabytes(memory))},
        {u"Szabad memória"_s, known(megabytes(freeMemory))},
        {u"Programmappa"_s, QDir::toNativeSeparators(folder)},
        {u"Lemezterület"_s, known(megabytes(static_cast<double>(disk.bytesTotal())))},
        {u"Szabad lemezterület"_s, known(megabytes(static_cast<double>(disk.bytesAvailable())))},
        {u"Qt"_s, QString::fromLatin1(qVersion())},
        {u"SQLite"_s, QString::fromLatin1(sqlite3_libversion())},
    };
}

} // namespace vandrel
