// One exchange over HTTP or HTTPS: what to send, how much to take, and what came of it. The event loop runs
// meanwhile; whoever calls keeps his windows from being used. It knows no window and tells nobody anything.
#pragma once

#include <QByteArray>
#include <QNetworkProxy>
#include <QString>
#include <QUrl>

#include <functional>
#include <utility>
#include <vector>

namespace vandrel {

enum class HttpFailure {
    none,      // an answer came whole, whatever its status
    address,   // no address of http or https
    noServer,  // unknown name, refused, unreachable, or a proxy that does not serve
    security,  // a certificate or a handshake that fails; nothing was sent
    cut,       // the connection ended before the answer did, or what came is not HTTP
    tooLarge,  // longer than the request allows
    cancelled, // the watch said so
};

struct HttpAnswer {
    HttpFailure failure = HttpFailure::none;
    int status = 0;           // 0: none came
    QByteArray contentType;   // as sent, with its parameters
    QByteArray body;          // empty after a failure, and where it went to a file
    bool lengthKnown = false; // false: an answer without Content-Length, whose cut end would not be noticed

    bool good() const { return failure == HttpFailure::none && status == 200; }
};

// Hungarian, fit for a message box, without the address: that may hold a password. Empty for a good answer.
QString describeHttp(const HttpAnswer& answer);

struct HttpRequest {
    QUrl url;
    std::vector<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;
    bool post = false;       // with the body; otherwise a GET
    qint64 limit = 16 << 20; // bytes of the answer's body
};

// Which way out: the user's system settings, or a proxy (or QNetworkProxy::NoProxy) of the caller's own.
struct HttpWay {
    bool systemProxy = true;
    QNetworkProxy proxy = QNetworkProxy(QNetworkProxy::NoProxy);
};

// Called about ten times a second with the bytes taken so far; false gives the exchange up. May be empty.
using HttpWatch = std::function<bool(qint64 received)>;

// Sends once and never again, follows no redirect, keeps no cookies, has no time-out, accepts no certificate
// that does not stand its check, and asks for an answer that is not packed.
HttpAnswer exchangeHttp(const HttpRequest& request, const HttpWay& way = {}, const HttpWatch& watch = {});

// The body of a good answer replaces the file, whole or not at all; after anything else the file is as it
// was. Faults: those of AtomicFile.
HttpAnswer fetchToFile(const HttpRequest& request, const QString& path, const HttpWay& way = {},
                       const HttpWatch& watch = {});

} // namespace vandrel
