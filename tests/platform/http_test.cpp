// Exchanges with a server of the tests' own: status, limit, cut connections, silence, redirects, proxies, and
// files that are there whole or not at all.
#include "platform/http.h"

#include "support/http_peer.h"
#include "support/test_workstation.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const HttpWay direct{false, QNetworkProxy(QNetworkProxy::NoProxy)};

HttpRequest get(const HttpPeer& peer) {
    return {peer.url(), {}, {}, false, 1000};
}

} // namespace

TEST(Http, WhatCameOfAnExchange) {
    const struct {
        const char* name;
        QByteArray raw;
        HttpFailure failure;
        int status;
        QByteArray body;
    } cases[] = {
        {"whole", httpAnswer("abc"), HttpFailure::none, 200, "abc"},
        {"status with a body", httpAnswer("no", "text/plain", "500 Broken"), HttpFailure::none, 500, "no"},
        {"not found", httpAnswer("gone", "text/plain", "404 Gone"), HttpFailure::none, 404, "gone"},
        {"login asked for", httpAnswer("who", "text/plain", "401 Unauthorized"), HttpFailure::none, 401,
         "who"},
        {"redirect", "HTTP/1.1 302 Found\r\nLocation: /other\r\nContent-Length: 0\r\n\r\n", HttpFailure::none,
         302, ""},
        {"closed without a word", "", HttpFailure::cut, 0, ""},
        {"cut in the body", "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc", HttpFailure::cut, 200, ""},
        {"no HTTP at all", "SSH-2.0-OpenSSH\r\n", HttpFailure::cut, 0, ""},
        {"one byte too many", httpAnswer(QByteArray(1001, 'x')), HttpFailure::tooLarge, 200, ""},
        {"just fits", httpAnswer(QByteArray(1000, 'x')), HttpFailure::none, 200, QByteArray(1000, 'x')},
        {"endless, no length", "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(3000000, 'x'), HttpFailure::tooLarge,
         200, ""},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.name);
        HttpPeer peer;
        peer.answer = [&](const PeerRequest&) { return entry.raw; };
        const HttpAnswer answer = exchangeHttp(get(peer), direct);
        EXPECT_EQ(answer.failure, entry.failure);
        EXPECT_EQ(answer.status, entry.status);
        EXPECT_EQ(answer.body.toStdString(), entry.body.toStdString());
        EXPECT_EQ(answer.lengthKnown, entry.raw.contains("Content-Length"));
        EXPECT_EQ(describeHttp(answer).isEmpty(), answer.good());
        for (const PeerRequest& request : peer.requests)
            EXPECT_EQ(request.target(), "/") << "a redirect was followed";
    }
}

TEST(Http, APostGoesOutOnceWithItsHeadersWhateverTheServerDoes) {
    HttpPeer peer;
    peer.answer = [](const PeerRequest&) { return QByteArray(); };
    const QByteArray body(200000, 'b');
    const HttpAnswer answer =
        exchangeHttp({peer.url(u"/a?B"_s), {{"SOAPAction", "\"x\""}}, body, true, 1000}, direct);
    EXPECT_EQ(answer.failure, HttpFailure::cut);
    ASSERT_EQ(peer.requests.size(), 1U);
    EXPECT_TRUE(peer.requests[0].head.startsWith("POST /a?B HTTP/1.1\r\n"));
    EXPECT_EQ(peer.requests[0].header("SOAPAction"), "\"x\"");
    EXPECT_TRUE(peer.requests[0].body == body);
}

TEST(Http, NoServerNoAddressNoTrust) {
    HttpPeer peer;
    const HttpRequest gone = get(peer);
    HttpRequest secure = gone;
    secure.url.setScheme(u"https"_s);
    EXPECT_NE(exchangeHttp(secure, direct).failure, HttpFailure::none);
    peer.stop();
    EXPECT_EQ(exchangeHttp(gone, direct).failure, HttpFailure::noServer);
    for (const char* address : {"", "ftp://127.0.0.1/x", "file:///etc/hostname", "http://", "localhost:80"})
        EXPECT_EQ(exchangeHttp({QUrl(QString::fromLatin1(address)), {}, {}, false, 10}, direct).failure,
                  HttpFailure::address)
            << address;
}

TEST(Http, ASilentServerWaitsForTheWatch) {
    HttpPeer peer;
    peer.silent = true;
    int looks = 0;
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(exchangeHttp(get(peer), direct, [&](qint64) { return ++looks < 3; }).failure,
              HttpFailure::cancelled);
    EXPECT_EQ(looks, 3);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST(Http, TheSystemsProxyIsUsed) {
    HttpPeer proxy;
    proxy.answer = [](const PeerRequest&) { return httpAnswer("by proxy"); };
    qputenv("http_proxy", proxy.base().toLatin1());
    const HttpAnswer answer = exchangeHttp({QUrl(u"http://fund.invalid/x"_s), {}, {}, false, 100});
    qunsetenv("http_proxy");
    EXPECT_EQ(answer.body.toStdString(), "by proxy");
    ASSERT_EQ(proxy.requests.size(), 1U);
    EXPECT_EQ(proxy.requests[0].target(), "http://fund.invalid/x");
}

TEST(Http, AFileIsReplacedByAGoodAnswerOnly) {
    TestWorkstation station;
    const QString path = station.path(u"fetched"_s);
    makeFile(path, "old");
    HttpPeer peer;
    QByteArray raw = httpAnswer("missing", "text/plain", "404 Gone");
    peer.answer = [&](const PeerRequest&) { return raw; };
    EXPECT_EQ(fetchToFile(get(peer), path, direct).status, 404);
    raw = "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc";
    EXPECT_EQ(fetchToFile(get(peer), path, direct).failure, HttpFailure::cut);
    EXPECT_EQ(fileBytes(path).toStdString(), "old");
    raw = httpAnswer("new");
    EXPECT_TRUE(fetchToFile(get(peer), path, direct).good());
    EXPECT_EQ(fileBytes(path).toStdString(), "new");
    EXPECT_EQ(faultNumberOf([&] { fetchToFile(get(peer), station.path(u"no/folder"_s), direct); }),
              fault::pathNotFound);
    EXPECT_EQ(QDir(station.directory.path()).entryList({u"fetched*"_s}).size(), 1);
}

} // namespace vandrel::test
