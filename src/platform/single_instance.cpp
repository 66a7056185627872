#include "platform/single_instance.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vandrel {

// A name in the abstract socket space leaves no file behind and is seen by every user of the machine.
SingleInstance::SingleInstance(const QByteArray& name) {
    m_socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (m_socket < 0) return;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto length =
        std::min<std::size_t>(static_cast<std::size_t>(name.size()), sizeof(address.sun_path) - 1);
    std::memcpy(address.sun_path + 1, name.constData(), length);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
    if (::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), size) != 0)
        m_otherRuns = errno == EADDRINUSE;
}

SingleInstance::~SingleInstance() {
    if (m_socket >= 0) ::close(m_socket);
}

} // namespace vandrel
