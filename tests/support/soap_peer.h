// An eligibility service on loopback: gives a description in one of its shapes and answers what the test
// says.
#pragma once

#include "support/http_peer.h"

#include <QRegularExpression>
#include <QString>

namespace vandrel::test {

using namespace Qt::StringLiterals;

enum class PeerStyle { rpcLiteral, rpcEncoded, documentLiteral };

// The names of the service's arguments, in their order.
inline const char* const peerArguments[] = {"ruser",     "mode",     "taj",      "szVezetek", "szUtonev1",
                                            "szUtonev2", "szHely",   "szEv",     "szHo",      "szNap",
                                            "neme",      "aVezetek", "aUtonev1", "aUtonev2",  "datum"};

class SoapPeer : public HttpPeer {
  public:
    explicit SoapPeer(PeerStyle style = PeerStyle::rpcLiteral) : m_style(style) {
        answer = [this](const PeerRequest& request) { return reply(request); };
    }

    // Members of the record; what stands here is written as it is.
    QByteArray record = "<tranKod>T-77</tranKod><hibaSzoveg></hibaSzoveg><vizitdijKot>I</vizitdijKot>"
                        "<hibakod>0</hibakod><jogviszony>I</jogviszony><user>vd</user>";
    // When set, they are sent instead of the service's own.
    QByteArray rawWsdl, rawLogin, rawInfo;

    QString address() const { return base() + u"/kjelo/TAJInfoSoapHttpPort?WSDL"_s; }
    int posts() const {
        int count = 0;
        for (const PeerRequest& request : requests)
            count += request.head.startsWith("POST") ? 1 : 0;
        return count;
    }

    static QByteArray envelope(const QByteArray& body) {
        return "<?xml version='1.0' encoding='UTF-8'?><e:Envelope "
               "xmlns:e='http://schemas.xmlsoap.org/soap/envelope/' xmlns:k='http://kjelo/' "
               "xmlns:i='http://www.w3.org/2001/XMLSchema-instance'><e:Body>" +
               body + "</e:Body></e:Envelope>";
    }
    static QByteArray fault() {
        return envelope("<e:Fault><faultcode>e:Server</faultcode><faultstring>titok</faultstring></e:Fault>");
    }

    QByteArray infoBody() const {
        switch (m_style) {
        case PeerStyle::rpcLiteral:
            return "<k:getTajInfoResponse><result>" + record + "</result></k:getTajInfoResponse>";
        case PeerStyle::rpcEncoded:
            return "<k:getTajInfoResponse><return href='#id0'/></k:getTajInfoResponse>"
                   "<multiRef id='id0' i:type='k:TAJInfoReturn'>" +
                   record + "</multiRef>";
        case PeerStyle::documentLiteral:
            break;
        }
        QByteArray qualified = record;
        qualified.replace("</", "\x01").replace("<", "<k:").replace("\x01", "</k:");
        return "<k:getTajInfoResponseElement><k:result>" + qualified +
               "</k:result></k:getTajInfoResponseElement>";
    }

    QByteArray wsdl() const {
        const bool document = m_style == PeerStyle::documentLiteral;
        const QByteArray use =
            m_style == PeerStyle::rpcEncoded ? "use='encoded' namespace='http://kjelo/'" : "use='literal'";
        QByteArray particles, parts;
        for (const char* name : peerArguments) {
            particles += QByteArray("<xs:element name='") + name + "' type='xs:string'/>";
            parts += QByteArray("<part name='") + name + "' type='xs:string'/>";
        }
        QByteArray text = "<definitions xmlns='http://schemas.xmlsoap.org/wsdl/' "
                          "xmlns:s='http://schemas.xmlsoap.org/wsdl/soap/' xmlns:t='http://kjelo/' "
                          "xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='http://kjelo/'>";
        const QByteArray type = "<xs:complexType name='TAJInfoReturn'><xs:sequence><xs:element "
                                "name='tranKod' type='xs:string'/></xs:sequence></xs:complexType>";
        if (document) {
            // The arguments come in two pieces: a type that the element's own type extends.
            const qsizetype half = particles.indexOf("<xs:element name='szHely'");
            text += "<types><xs:schema targetNamespace='http://kjelo/' elementFormDefault='qualified'>" +
                    type +
                    "<xs:element name='Login'><xs:complexType/></xs:element><xs:element name='LoginDone'>"
                    "<xs:complexType/></xs:element><xs:complexType name='First'><xs:sequence>" +
                    particles.left(half) +
                    "</xs:sequence></xs:complexType><xs:element name='getTajInfoElement'><xs:complexType>"
                    "<xs:complexContent><xs:extension base='t:First'><xs:sequence>" +
                    particles.mid(half) +
                    "</xs:sequence></xs:extension></xs:complexContent></xs:complexType></xs:element>"
                    "<xs:element name='getTajInfoResponseElement'><xs:complexType><xs:sequence><xs:element "
                    "name='result' type='t:TAJInfoReturn'/></xs:sequence></xs:complexType></xs:element>"
                    "</xs:schema></types>"
                    "<message name='L'><part name='p' element='t:Login'/></message>"
                    "<message name='LO'><part name='p' element='t:LoginDone'/></message>"
                    "<message name='G'><part name='p' element='t:getTajInfoElement'/></message>"
                    "<message name='GO'><part name='p' element='t:getTajInfoResponseElement'/></message>";
        } else {
            text += "<types><xs:schema targetNamespace='http://kjelo/'>" + type +
                    "</xs:schema></types><message name='L'/><message name='LO'/><message name='G'>" + parts +
                    "</message><message name='GO'><part name='" +
                    (m_style == PeerStyle::rpcLiteral ? "result" : "return") +
                    "' type='t:TAJInfoReturn'/></message>";
        }
        const QByteArray body = "<s:body " + use + (document ? "" : " namespace='http://kjelo/'") + "/>";
        const QByteArray bodies = "<input>" + body + "</input><output>" + body + "</output>";
        QByteArray result =
            text +
            "<portType name='P'><operation name='Login'><input message='t:L'/><output message='t:LO'/>"
            "</operation><operation name='getTajInfo'><input message='t:G'/><output "
            "message='t:GO'/></operation>"
            "</portType><binding name='B' type='t:P'><s:binding style='" +
            (document ? "document" : "rpc") +
            "' transport='http://schemas.xmlsoap.org/soap/http'/><operation name='Login'><s:operation "
            "soapAction='http://kjelo//Login'/>" +
            bodies +
            "</operation><operation name='getTajInfo'><s:operation soapAction='http://kjelo//getTajInfo'/>" +
            bodies +
            "</operation></binding><service name='TAJInfo'><port name='TAJInfoSoapHttpPort' binding='t:B'>"
            "<s:address location='" +
            base().toLatin1() + "/kjelo/TAJInfoSoapHttpPort'/></port></service></definitions>";
        return m_style == PeerStyle::rpcEncoded
                   ? result.replace("use='encoded' namespace='http://kjelo/' namespace=",
                                    "use='encoded' namespace=")
                   : result;
    }

  private:
    QByteArray reply(const PeerRequest& request) const {
        if (request.head.startsWith("GET")) return rawWsdl.isEmpty() ? httpAnswer(wsdl()) : rawWsdl;
        if (request.header("SOAPAction").contains("Login"))
            return rawLogin.isEmpty() ? httpAnswer(envelope("<k:LoginResponse/>")) : rawLogin;
        return rawInfo.isEmpty() ? httpAnswer(envelope(infoBody())) : rawInfo;
    }

    PeerStyle m_style;
};

} // namespace vandrel::test
