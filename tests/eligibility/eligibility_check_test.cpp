// The client against a service of the tests' own: what goes over the wire in each of its shapes, the answers
// that are read, and every way in which a service can fail.
#include "eligibility/eligibility_check.h"

#include "platform/fault.h"
#include "support/soap_peer.h"
#include "support/test_workstation.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const QString badLogin = u"HIBA!\nA felhasználónév / jelszó nem helyes!"_s;
const QString noConnection = u"HIBA!\nNincs kapcsolat!\nKérem ellenőrizze az internetbeállításokat!"_s;
const MyHeaders login{u"rend<ő>"_s, u"t&itok\"1"_s};

const CheckedPerson byName{u"  "_s, u"Kis Anna Mária Éva"_s, u"1960.02.03."_s, u"2"_s, u"Ő Eső"_s};

struct Check {
    CallOutcome ask(SoapPeer& peer, const CheckRequest& request) {
        const ServicePorts ports{dialogue, {false, QNetworkProxy(QNetworkProxy::NoProxy)}, watch};
        return askService(ports, {address.isEmpty() ? peer.address() : address, login}, request, u"vd"_s,
                          answer);
    }
    CallOutcome ask(SoapPeer& peer) {
        return ask(peer, makeCheckRequest({u"123456788"_s, {}, {}, {}, {}}, {}));
    }
    // Text of the fault that the check raises, with its source; "" when it raises none.
    QString faultOf(SoapPeer& peer) {
        try {
            ask(peer);
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number(), fault::webService);
            EXPECT_FALSE(fault.text().contains(login.ClientPassword));
            return fault.source() + ": "_L1 + fault.text();
        }
        return {};
    }

    ExpectedDialogue dialogue;
    QString address;
    HttpWatch watch;
    CheckAnswer answer;
};

QString joined(const CheckAnswer& a) {
    return QStringList{a.trkod, a.jogv, a.hibakod, a.htext, a.VizDijKot}.join('|'_L1);
}

// The header and the values of a request, read by another hand than the one that wrote them.
QString argumentsOf(const QByteArray& body) {
    const std::optional<XmlNode> root = readXml(body);
    if (!root) return u"not well-formed"_s;
    const XmlNode& operation = root->children.at(1).children.at(0);
    QStringList values{operation.name.nameSpace + ' '_L1 + operation.name.local};
    for (const XmlNode& argument : operation.children)
        values << argument.name.nameSpace + argument.name.local + '='_L1 + argument.text;
    return values.join('|'_L1);
}

} // namespace

TEST(EligibilityRequest, BytesOfLoginAndQuery) {
    SoapPeer peer;
    Check check;
    ASSERT_EQ(check.ask(peer), CallOutcome::done);
    ASSERT_EQ(peer.requests.size(), 3U);
    EXPECT_EQ(peer.requests[0].head.left(peer.requests[0].head.indexOf('\r')),
              "GET /kjelo/TAJInfoSoapHttpPort?WSDL HTTP/1.1");
    EXPECT_EQ(peer.requests[1].header("SOAPAction"), "\"http://kjelo//Login\"");
    EXPECT_EQ(peer.requests[1].header("Content-Type"), "text/xml; charset=utf-8");
    const std::string head =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
        "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
        "xmlns:m=\"http://kjelo/\"><SOAP-ENV:Header>"
        "<Security xmlns=\"http://docs.oasis-open.org/wss/2004/01/"
        "oasis-200401-wss-wssecurity-secext-1.0.xsd\" SOAP-ENV:mustUnderstand=\"0\"><UsernameToken>"
        "<Username>rend&lt;ő&gt;</Username>"
        "<Password xmlns:wsse=\"http://docs.oasis-open.org/wss/2004/01/"
        "oasis-200401-wss-wssecurity-secext-1.0.xsd\" wsse:Type=\"http://docs.oasis-open.org/wss/2004/01/"
        "oasis-200401-wss-username-token-profile-1.0#PasswordText\">t&amp;itok&quot;1</Password>"
        "</UsernameToken></Security></SOAP-ENV:Header><SOAP-ENV:Body>";
    EXPECT_EQ(peer.requests[1].body.trimmed().toStdString(),
              head + "<m:Login/></SOAP-ENV:Body></SOAP-ENV:Envelope>");
    EXPECT_TRUE(peer.requests[2].body.startsWith(QByteArray::fromStdString(head)));
    EXPECT_EQ(argumentsOf(peer.requests[2].body),
              u"http://kjelo/ getTajInfo|ruser=vd|mode=01|taj=123456788|szVezetek=|szUtonev1=|szUtonev2=|"
              "szHely=|szEv=|szHo=|szNap=|neme=|aVezetek=|aUtonev1=|aUtonev2=|datum="_s);
}

TEST(EligibilityRequest, ByNameInEachShapeOfTheService) {
    const QString values = u"ruser=vd|mode=02|taj=|szVezetek=Kis|szUtonev1=Anna|szUtonev2=MáriaÉva|szHely=|"
                           "szEv=1960|szHo=02|szNap=03|neme=2|aVezetek=Ő|aUtonev1=Eső|aUtonev2=|"
                           "datum=20080403"_s;
    QString qualified = values;
    qualified.replace('|'_L1, "|http://kjelo/"_L1);
    const struct {
        PeerStyle style;
        QString expected;
    } cases[] = {
        {PeerStyle::rpcLiteral, u"http://kjelo/ getTajInfo|"_s + values},
        {PeerStyle::rpcEncoded, u"http://kjelo/ getTajInfo|"_s + values},
        {PeerStyle::documentLiteral, u"http://kjelo/ getTajInfoElement|http://kjelo/"_s + qualified},
    };
    for (const auto& entry : cases) {
        SoapPeer peer(entry.style);
        Check check;
        ASSERT_EQ(check.ask(peer, makeCheckRequest(byName, QDate(2008, 4, 3))), CallOutcome::done);
        const QByteArray body = peer.requests.at(2).body;
        EXPECT_EQ(argumentsOf(body), entry.expected);
        EXPECT_EQ(body.contains("xsi:type=\"xsd:string\""), entry.style == PeerStyle::rpcEncoded);
        EXPECT_EQ(joined(check.answer), u"T-77|I|0||I"_s);
    }
}

TEST(EligibilityRequest, NamesAreCutAtEachBlank) {
    const auto cut = [](const char16_t* name) {
        const NameParts parts = cutName(QString::fromUtf16(name));
        return QString(parts.family + '|'_L1 + parts.given1 + '|'_L1 + parts.given2);
    };
    EXPECT_EQ(cut(u""), u"||"_s);
    EXPECT_EQ(cut(u"Nagy"), u"Nagy||"_s);
    EXPECT_EQ(cut(u"Nagy Éva"), u"Nagy|Éva|"_s);
    EXPECT_EQ(cut(u"A B C D E "), u"A|B|CDE"_s);
    EXPECT_EQ(cut(u"A  B"), u"A||B"_s);
}

TEST(EligibilityAnswer, TheRecordIsFoundWhateverItLooksLike) {
    const struct {
        const char* name;
        QByteArray body;
        QByteArray type;
        const char16_t* expected;
    } cases[] = {
        {"other prefixes, another order, foreign members",
         "<S:Envelope xmlns:S='http://schemas.xmlsoap.org/soap/envelope/'><S:Header><x "
         "a='1'/></S:Header><S:Body>"
         "<getTajInfoResponse xmlns='http://kjelo/'><result xmlns=''><jogviszony>N</jogviszony>"
         "<z:jogviszony xmlns:z='urn:other'>I</z:jogviszony><hibaSzoveg> nincs &amp; &#337; </hibaSzoveg>"
         "<more/></result></getTajInfoResponse></S:Body></S:Envelope>",
         "text/xml", u"|N||nincs & ő|"},
        {"type said by the element itself",
         SoapPeer::envelope("<k:r><other i:type='k:TAJInfoReturn'><k:tranKod>1</k:tranKod></other></k:r>"),
         "text/xml; charset=\"utf-8\"", u"1||||"},
        {"nothing in a member",
         SoapPeer::envelope("<k:r><result><tranKod i:nil='true'>9</tranKod></result></k:r>"), "text/xml",
         u"||||"},
        {"the charset of the header holds",
         QByteArray("<?xml version='1.0' encoding='UTF-8'?>") +
             SoapPeer::envelope("<k:r><result><hibaSzoveg>\xF5</hibaSzoveg></result></k:r>").mid(38),
         "text/xml; charset=iso-8859-2", u"|||ő|"},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.name);
        SoapPeer peer;
        peer.rawInfo = httpAnswer(entry.body, entry.type);
        Check check;
        EXPECT_EQ(check.ask(peer), CallOutcome::done);
        EXPECT_EQ(joined(check.answer), QString::fromUtf16(entry.expected));
    }
}

TEST(EligibilityFaults, TheServiceRefuses) {
    // With the status of the protocol, without it, and in the protocol's next version.
    QByteArray next = SoapPeer::fault();
    next.replace("http://schemas.xmlsoap.org/soap/envelope/", "http://www.w3.org/2003/05/soap-envelope");
    for (const QByteArray& raw :
         {httpAnswer(SoapPeer::fault(), "text/xml", "500 Error"), httpAnswer(SoapPeer::fault()),
          httpAnswer(next, "text/xml", "401 Unauthorized")}) {
        SoapPeer peer;
        Check check;
        peer.rawLogin = raw;
        check.answer.jogv = u"before"_s;
        check.dialogue.expect(badLogin, u"Hiba!"_s);
        EXPECT_EQ(check.ask(peer), CallOutcome::told);
        EXPECT_EQ(peer.posts(), 1) << "asked after a refused login";
        peer.rawLogin.clear();
        peer.rawInfo = raw;
        check.dialogue.expect(badLogin, u"Hiba!"_s);
        EXPECT_EQ(check.ask(peer), CallOutcome::told);
        EXPECT_EQ(joined(check.answer), u"||||"_s);
    }
}

TEST(EligibilityFaults, NoConnectionIsAnyFailureToGetTheDescription) {
    const QByteArray raws[] = {
        httpAnswer("<definitions/>", "text/xml", "404 Not Found"),
        httpAnswer("x", "text/html", "500 Error"),
        "HTTP/1.1 302 Found\r\nLocation: /kjelo\r\nContent-Length: 0\r\n\r\n",
        "HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n<defin",
        httpAnswer(QByteArray(5 << 20, ' ')),
    };
    for (const QByteArray& raw : raws) {
        SoapPeer peer;
        peer.rawWsdl = raw;
        Check check;
        check.dialogue.expect(noConnection, u"Hiba!"_s);
        EXPECT_EQ(check.ask(peer), CallOutcome::told);
        EXPECT_EQ(peer.requests.size(), 1U);
    }
    SoapPeer gone;
    gone.stop();
    Check check;
    check.dialogue.expect(noConnection, u"Hiba!"_s);
    EXPECT_EQ(check.ask(gone), CallOutcome::told);
}

TEST(EligibilityFaults, AnUnfitDescriptionIsRaised) {
    const SoapPeer model;
    const struct {
        const char* before;
        QByteArray after;
    } changes[] = {
        {"<definitions ", "<!DOCTYPE d [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;'>]><definitions "},
        {"</definitions>", ""},
        {"targetNamespace='http://kjelo/'>", "targetNamespace='http://other/'>"},
        {"service name='TAJInfo'", "service name='Other'"},
        {"port name='TAJInfoSoapHttpPort'", "port name='Other'"},
        {"binding='t:B'", "binding='u:B'"},
        {"soap/http'", "soap/smtp'"},
        {"<part name='datum' type='xs:string'/>", ""},
        {"type='t:TAJInfoReturn'", "type='xs:string'"},
        {"<operation name='Login'><input message='t:L'/>", "<operation name='Login'><input message='t:G'/>"},
        {"http://kjelo//Login", "a&#10;X-Injected: 1"},
    };
    for (const auto& change : changes) {
        SCOPED_TRACE(change.before);
        SoapPeer peer;
        QByteArray text = peer.wsdl();
        ASSERT_TRUE(text.contains(change.before));
        peer.rawWsdl = httpAnswer(text.replace(change.before, change.after));
        Check check;
        EXPECT_TRUE(check.faultOf(peer).startsWith(u"Class_Initialize: "_s));
        EXPECT_EQ(peer.posts(), 0);
    }
    for (const char16_t* address : {u"", u"kjelo.hu", u"ftp://kjelo.hu"}) {
        SoapPeer peer;
        Check check;
        check.address = address[0] == 0 ? u" "_s : QString::fromUtf16(address);
        EXPECT_TRUE(check.faultOf(peer).startsWith(u"Class_Initialize: "_s));
    }
}

TEST(EligibilityFaults, ABadAnswerIsRaisedWithTheOperation) {
    const QByteArray good = SoapPeer().infoBody();
    QByteArray bomb = "<!DOCTYPE e [<!ENTITY a 'aaaaaaaaaa'>";
    for (char c = 'b'; c < 'k'; ++c) {
        const QByteArray name(1, c), before(1, static_cast<char>(c - 1));
        bomb += "<!ENTITY " + name + " '" + ("&" + before + ";").repeated(10) + "'>";
    }
    bomb += "]>" + SoapPeer::envelope("<k:r><result><tranKod>&j;</tranKod></result></k:r>").mid(38);
    QByteArray otherEnvelope = SoapPeer::envelope(good);
    otherEnvelope.replace("http://schemas.xmlsoap.org/soap/envelope/", "urn:envelope");
    QByteArray otherService = SoapPeer::envelope(good);
    otherService.replace("http://kjelo/", "http://kjelo");
    const QByteArray whole = httpAnswer(SoapPeer::envelope(good));
    const struct {
        const char* name;
        QByteArray raw;
    } cases[] = {
        {"cut", whole.left(whole.size() - 30)},
        {"nothing at all", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"},
        {"cut inside the XML", httpAnswer(SoapPeer::envelope(good).chopped(5))},
        {"100 MB", httpAnswer(QByteArray(100 << 20, ' '))},
        {"entity bomb", httpAnswer(bomb)},
        {"deep", httpAnswer(QByteArray("<a>").repeated(100000))},
        {"many attributes", httpAnswer("<a " + QByteArray("b='' ").repeated(1000) + "/>")},
        {"page of a proxy", httpAnswer("<html/>", "text/html")},
        {"wrong content type", httpAnswer(SoapPeer::envelope(good), "application/octet-stream")},
        {"no content type", "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n<a"},
        {"unknown charset", httpAnswer(SoapPeer::envelope(good), "text/xml; charset=klingon")},
        {"not the charset it says",
         httpAnswer(SoapPeer::envelope("\xC3\x28" + good), "text/xml; charset=utf-8")},
        {"not the encoding it says", httpAnswer(SoapPeer::envelope("\xFF" + good), "text/xml")},
        {"another envelope", httpAnswer(otherEnvelope)},
        {"another service", httpAnswer(otherService)},
        {"no body", httpAnswer("<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'/>")},
        {"no record", httpAnswer(SoapPeer::envelope("<k:getTajInfoResponse/>"))},
        {"record that is nothing", httpAnswer(SoapPeer::envelope("<k:r><result i:nil='true'/></k:r>"))},
        {"twice the same member",
         httpAnswer(SoapPeer::envelope("<k:r><result><jogviszony>N</jogviszony><jogviszony>I</jogviszony>"
                                       "</result></k:r>"))},
        {"status with an answer", httpAnswer(SoapPeer::envelope(good), "text/xml", "503 Later")},
        {"redirect", "HTTP/1.1 307 Elsewhere\r\nLocation: /x\r\nContent-Length: 0\r\n\r\n"},
        {"page with 500", httpAnswer("<h1>crash</h1>", "text/html", "500 Error")},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.name);
        SoapPeer peer;
        Check check;
        peer.rawInfo = entry.raw;
        EXPECT_TRUE(check.faultOf(peer).startsWith(u"wsm_getTajInfo: "_s));
        EXPECT_EQ(joined(check.answer), u"||||"_s);
        EXPECT_EQ(peer.posts(), 2);
        peer.rawLogin = entry.raw;
        // A login that says nothing more is good; the record is the query's.
        const QByteArray name(entry.name);
        if (name == "no record" || name.startsWith("record") || name.startsWith("twice") ||
            name == "another service")
            continue;
        EXPECT_TRUE(check.faultOf(peer).startsWith(u"wsm_login: "_s));
    }
}

TEST(EligibilityFaults, WhatXmlCannotCarryIsNotSent) {
    SoapPeer peer;
    Check check;
    CheckedPerson person = byName;
    person.name = u"a\u0001b"_s;
    EXPECT_EQ(faultNumberOf([&] { check.ask(peer, makeCheckRequest(person, {})); }), fault::webService);
    EXPECT_EQ(peer.posts(), 1);
}

TEST(EligibilityCheck, GivenUpByTheWatchAtEveryStage) {
    SoapPeer peer;
    peer.silent = true;
    Check check;
    check.watch = [](qint64) { return false; };
    EXPECT_EQ(check.ask(peer), CallOutcome::cancelled);
}

TEST(EligibilityCheck, AddressMayBeTheHostAlone) {
    EXPECT_EQ(serviceDescriptionUrl(u" https://fund.hu:8443 "_s).toString(),
              u"https://fund.hu:8443/kjelo/TAJInfoSoapHttpPort?WSDL"_s);
    EXPECT_EQ(serviceDescriptionUrl(u"http://fund.hu/"_s).toString(),
              u"http://fund.hu/kjelo/TAJInfoSoapHttpPort?WSDL"_s);
    EXPECT_EQ(serviceDescriptionUrl(u"http://fund.hu/a?b"_s).toString(), u"http://fund.hu/a?b"_s);
    TestWorkstation test;
    const QString longAddress = u"https://jogviszony.szolgaltatas.example/kjelo/TAJInfoSoapHttpPort?WSDL"_s;
    storeServiceAddress(test.workstation, longAddress);
    EXPECT_EQ(storedServiceAccess(test.workstation).address, longAddress);
}

TEST(EligibilityCheck, ImportsAreFollowedButNotForEver) {
    // The service's own document holds the port alone; the rest is imported, in a circle.
    const QUrl url(u"http://fund.hu/w"_s);
    const SoapPeer peer(PeerStyle::documentLiteral);
    QByteArray main = peer.wsdl();
    const qsizetype types = main.indexOf("<types>"), typesEnd = main.indexOf("</types>") + 8;
    QByteArray schema = main.mid(types + 7, typesEnd - types - 15);
    schema.replace("<xs:schema ",
                   "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='http://kjelo/' ");
    schema.replace("</xs:schema>", "<xs:include schemaLocation='s.xsd'/></xs:schema>");
    main.replace(types, typesEnd - types,
                 "<import namespace='urn:x' location='w'/><types><xs:schema><xs:import "
                 "namespace='http://kjelo/' schemaLocation='s.xsd'/></xs:schema></types>");
    const ServiceNames names{u"TAJInfo"_s, u"TAJInfoSoapHttpPort"_s, u"http://kjelo/"_s, u"TAJInfoReturn"_s,
                             15};
    QStringList fetched;
    const std::optional<ServiceDescription> description =
        readServiceDescription(url, names, [&](const QUrl& wanted) {
            fetched << wanted.path();
            return readXml(wanted.path() == "/w"_L1 ? main : schema);
        });
    ASSERT_TRUE(description.has_value());
    EXPECT_EQ(fetched, (QStringList{u"/w"_s, u"/s.xsd"_s}));
    EXPECT_EQ(description->getTajInfo.arguments.at(14).local, u"datum"_s);

    int count = 0;
    EXPECT_FALSE(readServiceDescription(url, names, [&](const QUrl&) {
                     ++count;
                     return readXml("<d:definitions xmlns:d='http://schemas.xmlsoap.org/wsdl/'><d:import "
                                    "location='w" +
                                    QByteArray::number(count) + "'/></d:definitions>");
                 }).has_value());
    EXPECT_EQ(count, 16);
    // Nothing that was described in private is sent in the open.
    EXPECT_FALSE(readServiceDescription(QUrl(u"https://fund.hu/w"_s), names, [&](const QUrl&) {
                     return readXml(peer.wsdl());
                 }).has_value());
}

TEST(EligibilityLog, OneRowACheckTiedByItsCode) {
    TestWorkstation test;
    logCheck(test.workstation, u"111111110"_s, {u"T-1"_s, u"I"_s, u"0"_s, {}, u"I"_s});
    logCheck(test.workstation, u"111111110"_s, {u"T-2"_s, u"N"_s, u"5"_s, u"it's 'out'; --"_s, u"N"_s});
    tieCheckToSheet(test.workstation, u"T-2"_s, u"A010000042"_s);
    tieCheckToSheet(test.workstation, u" "_s, u"A010000043"_s);
    Database& log = test.workstation.files[DataFile::TAJKapu];
    EXPECT_EQ(firstText(log,
                        "select group_concat(Datum||'/'||Kod||'/'||TAJ||'/'||Jogviszony||'/'||Hiba||'/'||"
                        "ifnull(Adatlap,'-'), ' ') from Tranzakciok"),
              u"2008.04.03./T-1/111111110/I//- 2008.04.03./T-2/111111110/N/it's 'out'; --/A010000042"_s);
    EXPECT_EQ(lastLoggedCheck(test.workstation, u" 111111110"_s),
              u"Utolsó ellenőrzés: 2008.04.03. tranzakciókód: T-2"_s);
    EXPECT_EQ(lastLoggedCheck(test.workstation, u"2"_s), QString());
    log.execute("drop table Tranzakciok");
    EXPECT_EQ(lastLoggedCheck(test.workstation, u"111111110"_s), QString());
    EXPECT_EQ(faultNumberOf([&] { logCheck(test.workstation, u"1"_s, {}); }), fault::tableMissing);
}

} // namespace vandrel::test
