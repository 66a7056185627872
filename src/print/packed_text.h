// A text kept small. A list of a hundred thousand sheets holds half a million texts, most of them tags:
// letters take their UTF-8 length here and the common tags one byte. Every UTF-16 sequence comes back as it
// was, lone surrogates too.
#pragma once

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace vandrel {

class PackedText {
  public:
    PackedText() = default;
    explicit PackedText(QStringView text);
    PackedText(const PackedText& other);
    PackedText(PackedText&&) noexcept = default;
    PackedText& operator=(PackedText other) noexcept;
    ~PackedText() = default;

    QString text() const;
    // Replaces the content of the buffer by the text.
    void unpack(std::vector<char16_t>& buffer) const;

  private:
    // The number of bytes, then the bytes; one allocation and nothing else. Null: the empty text.
    std::unique_ptr<unsigned char[]> m_bytes;
};

} // namespace vandrel
