#include "platform/http.h"

#include "platform/atomic_file.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QTimer>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int watchEvery = 100;           // milliseconds
constexpr qint64 readBuffer = 256 * 1024; // bytes that the network may run ahead of the reader

class SystemProxies : public QNetworkProxyFactory {
  public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        return systemProxyForQuery(query);
    }
};

// A body that goes out once: a connection that ends without an answer makes the library send again what it
// can rewind, and a request must not be made twice.
class OneWayBody : public QIODevice {
  public:
    explicit OneWayBody(const QByteArray& bytes) : m_bytes(bytes) { open(QIODevice::ReadOnly); }
    bool isSequential() const override { return true; }
    bool reset() override { return false; }
    bool atEnd() const override { return m_sent == m_bytes.size(); }
    qint64 bytesAvailable() const override { return m_bytes.size() - m_sent; }

  protected:
    qint64 readData(char* data, qint64 length) override {
        if (m_sent == m_bytes.size()) return -1;
        const qint64 count = std::min<qint64>(length, m_bytes.size() - m_sent);
        std::copy_n(m_bytes.constData() + m_sent, count, data);
        m_sent += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    QByteArray m_bytes;
    qint64 m_sent = 0;
};

HttpFailure failureOf(QNetworkReply::NetworkError error, int status) {
    switch (error) {
    case QNetworkReply::NoError:
        return HttpFailure::none;
    case QNetworkReply::SslHandshakeFailedError:
        return HttpFailure::security;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TimeoutError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return HttpFailure::noServer;
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return status == 0 ? HttpFailure::address : HttpFailure::none;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ContentReSendError:
        return HttpFailure::cut;
    default:
        // An answer with a status of 400 and above is an answer.
        return status >= 400 ? HttpFailure::none : HttpFailure::cut;
    }
}

// take gets the body piece by piece, of an answer with the status 200 or of any; false stops.
using Take = std::function<void(const QByteArray&)>;

HttpAnswer exchange(const HttpRequest& request, const HttpWay& way, const HttpWatch& watch,
                    const Take& take) {
    HttpAnswer answer;
    const QString scheme = request.url.scheme();
    if (!request.url.isValid() || request.url.host().isEmpty() ||
        (scheme != "http"_L1 && scheme != "https"_L1)) {
        answer.failure = HttpFailure::address;
        return answer;
    }
    QNetworkAccessManager manager;
    manager.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    if (way.systemProxy)
        manager.setProxyFactory(new SystemProxies); // owned by the manager from here on
    else
        manager.setProxy(way.proxy);
    QNetworkRequest network(request.url);
    network.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    network.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    network.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    network.setRawHeader("Accept-Encoding", "identity");
    for (const auto& [name, value] : request.headers)
        network.setRawHeader(name, value);

    OneWayBody body(request.body);
    if (request.post) {
        network.setHeader(QNetworkRequest::ContentLengthHeader, request.body.size());
        if (!network.hasRawHeader("Content-Type"))
            network.setRawHeader("Content-Type", "application/octet-stream");
        network.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    }
    const std::unique_ptr<QNetworkReply> reply(request.post ? manager.post(network, &body)
                                                            : manager.get(network));
    reply->setReadBufferSize(readBuffer);

    HttpFailure stopped = HttpFailure::none;
    qint64 received = 0;
    std::exception_ptr broken; // out of take: nothing may be thrown through the event loop
    const auto stop = [&](HttpFailure why) {
        if (stopped == HttpFailure::none) stopped = why;
        if (!reply->isFinished()) reply->abort();
    };
    const auto read = [&] {
        if (stopped != HttpFailure::none || broken) return;
        const QByteArray piece = reply->readAll();
        received += piece.size();
        if (received > request.limit) return stop(HttpFailure::tooLarge);
        try {
            take(piece);
        } catch (...) {
            broken = std::current_exception();
            stop(HttpFailure::cancelled);
        }
    };
    answer.status = 0;
    QEventLoop loop;
    QTimer clock;
    QObject::connect(reply.get(), &QIODevice::readyRead, &loop, read);
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(&clock, &QTimer::timeout, &loop, [&] {
        if (!broken && stopped == HttpFailure::none && watch && !watch(received))
            stop(HttpFailure::cancelled);
    });
    clock.start(watchEvery);
    if (!reply->isFinished()) loop.exec();
    clock.stop();
    if (reply->bytesAvailable() > 0) read();
    if (broken) std::rethrow_exception(broken);

    answer.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    answer.lengthKnown = reply->hasRawHeader("Content-Length");
    answer.contentType = reply->rawHeader("Content-Type");
    answer.failure = stopped != HttpFailure::none ? stopped : failureOf(reply->error(), answer.status);
    if (answer.failure == HttpFailure::none && answer.status == 0) answer.failure = HttpFailure::cut;
    return answer;
}

} // namespace

QString describeHttp(const HttpAnswer& answer) {
    switch (answer.failure) {
    case HttpFailure::none:
        if (answer.status == 200) return {};
        return u"A kiszolgáló hibát jelzett (HTTP %1)."_s.arg(answer.status);
    case HttpFailure::address:
        return u"A megadott cím nem http:// vagy https:// kezdetű internetcím."_s;
    case HttpFailure::noServer:
        return u"A kiszolgáló nem érhető el."_s;
    case HttpFailure::security:
        return u"A kiszolgálóval nem hozható létre biztonságos kapcsolat (hibás tanúsítvány)."_s;
    case HttpFailure::cut:
        return u"A kapcsolat megszakadt, mielőtt a válasz megérkezett volna."_s;
    case HttpFailure::tooLarge:
        return u"A válasz túl nagy, ezért nem olvasható be."_s;
    case HttpFailure::cancelled:
        return u"Az adatcserét megszakították."_s;
    }
    return {};
}

HttpAnswer exchangeHttp(const HttpRequest& request, const HttpWay& way, const HttpWatch& watch) {
    QByteArray body;
    HttpAnswer answer = exchange(request, way, watch, [&body](const QByteArray& piece) { body += piece; });
    if (answer.failure == HttpFailure::none) answer.body = body;
    return answer;
}

HttpAnswer fetchToFile(const HttpRequest& request, const QString& path, const HttpWay& way,
                       const HttpWatch& watch) {
    AtomicFile file(path);
    const HttpAnswer answer = exchange(request, way, watch, [&file](const QByteArray& piece) {
        file.write(piece);
        file.check(); // a full disk ends the transfer at once
    });
    if (answer.good()) file.keep();
    return answer;
}

} // namespace vandrel
