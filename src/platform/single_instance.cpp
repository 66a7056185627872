#include "platform/single_instance.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vandrel {

// A name in the abstract socket space leaves no file behind and is seen by every user of the machine.
SingleInstance::SingleInstance(const QByteArray& name, const QString& dataFolder) {
    if (!dataFolder.isEmpty()) claimFolder(dataFolder);
    m_socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (m_socket < 0) return;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto length =
        std::min<std::size_t>(static_cast<std::size_t>(name.size()), sizeof(address.sun_path) - 1);
    std::memcpy(address.sun_path + 1, name.constData(), length);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
    if (::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), size) != 0)
        m_otherRuns = m_otherRuns || errno == EADDRINUSE;
}

// A record lock, which shared folders carry from machine to machine. It belongs to the open file and not to
// the process, so that no other use of the file drops it.
void SingleInstance::claimFolder(const QString& folder) {
    const QByteArray path = QFile::encodeName(QDir(folder).filePath(QLatin1StringView(lockFileName)));
    m_lockFile = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (m_lockFile < 0) return;
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (::fcntl(m_lockFile, F_OFD_SETLK, &whole) != 0) m_otherRuns = errno == EAGAIN || errno == EACCES;
}

SingleInstance::~SingleInstance() {
    if (m_socket >= 0) ::close(m_socket);
    if (m_lockFile >= 0) ::close(m_lockFile);
}

} // namespace vandrel
