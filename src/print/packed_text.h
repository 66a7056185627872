// A text kept small. A list of a hundred thousand sheets holds half a million texts, most of them tags:
// letters take their UTF-8 length here and the common tags one byte. Every UTF-16 sequence comes back as it
// was, lone surrogates too.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <vector>

namespace vandrel {

class PackedText {
  public:
    PackedText() = default;
    explicit PackedText(QStringView text);

    QString text() const;
    // Replaces the content of the buffer by the text.
    void unpack(std::vector<char16_t>& buffer) const;
    bool isEmpty() const { return m_bytes.isEmpty(); }
    bool operator==(const PackedText&) const = default;

  private:
    QByteArray m_bytes;
};

} // namespace vandrel
