#include "print/packed_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

namespace vandrel {

namespace {

// Bytes from here on begin no letter, so each is a tag. The longer one of two that begin alike first.
constexpr unsigned char firstTag = 0xF8;
constexpr std::array<std::u16string_view, 5> tags = {u"</LINDENT><LINDENT=", u"</LINDENT>", u"<LINDENT=",
                                                     u"<b>", u"</b>"};

void pack(std::u16string_view text, std::vector<unsigned char>& bytes) {
    bytes.resize(3 * text.size()); // no unit takes more
    unsigned char* out = bytes.data();
    for (std::size_t at = 0; at < text.size();) {
        const char16_t unit = text[at];
        if (unit == u'<') {
            std::size_t tag = 0;
            while (tag < tags.size() && text.compare(at, tags[tag].size(), tags[tag]) != 0)
                ++tag;
            if (tag < tags.size()) {
                *out++ = static_cast<unsigned char>(firstTag + tag);
                at += tags[tag].size();
                continue;
            }
        }
        // Unit by unit and not letter by letter: half a letter outside the basic plane stays half a letter.
        if (unit < 0x80) {
            *out++ = static_cast<unsigned char>(unit);
        } else if (unit < 0x800) {
            *out++ = static_cast<unsigned char>(0xC0 | unit >> 6);
            *out++ = static_cast<unsigned char>(0x80 | (unit & 0x3F));
        } else {
            *out++ = static_cast<unsigned char>(0xE0 | unit >> 12);
            *out++ = static_cast<unsigned char>(0x80 | (unit >> 6 & 0x3F));
            *out++ = static_cast<unsigned char>(0x80 | (unit & 0x3F));
        }
        ++at;
    }
    bytes.resize(static_cast<std::size_t>(out - bytes.data()));
}

} // namespace

PackedText::PackedText(QStringView text) {
    if (text.isEmpty()) return;
    static thread_local std::vector<unsigned char> bytes;
    pack({text.utf16(), static_cast<std::size_t>(text.size())}, bytes);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    m_bytes.reset(new unsigned char[sizeof size + bytes.size()]);
    std::memcpy(m_bytes.get(), &size, sizeof size);
    std::memcpy(m_bytes.get() + sizeof size, bytes.data(), bytes.size());
}

PackedText::PackedText(const PackedText& other) {
    if (!other.m_bytes) return;
    std::uint32_t size = 0;
    std::memcpy(&size, other.m_bytes.get(), sizeof size);
    m_bytes.reset(new unsigned char[sizeof size + size]);
    std::memcpy(m_bytes.get(), other.m_bytes.get(), sizeof size + size);
}

PackedText& PackedText::operator=(PackedText other) noexcept {
    std::swap(m_bytes, other.m_bytes);
    return *this;
}

QString PackedText::text() const {
    std::vector<char16_t> buffer;
    unpack(buffer);
    return QString::fromUtf16(buffer.data(), static_cast<qsizetype>(buffer.size()));
}

void PackedText::unpack(std::vector<char16_t>& buffer) const {
    buffer.clear();
    if (!m_bytes) return;
    std::uint32_t size = 0;
    std::memcpy(&size, m_bytes.get(), sizeof size);
    const unsigned char* at = m_bytes.get() + sizeof size;
    const unsigned char* const end = at + size;
    // A byte makes at most one letter; a tag makes room for its own.
    buffer.resize(size);
    char16_t* out = buffer.data();
    while (at < end) {
        const unsigned char byte = *at++;
        if (byte < 0x80) {
            *out++ = byte;
        } else if (byte >= firstTag) {
            const std::u16string_view tag = tags[byte - firstTag];
            const auto done = static_cast<std::size_t>(out - buffer.data());
            buffer.resize(buffer.size() + tag.size());
            out = std::copy(tag.begin(), tag.end(), buffer.data() + done);
        } else if (byte < 0xE0) {
            *out++ = static_cast<char16_t>((byte & 0x1F) << 6 | (*at & 0x3F));
            ++at;
        } else {
            *out++ = static_cast<char16_t>((byte & 0x0F) << 12 | (at[0] & 0x3F) << 6 | (at[1] & 0x3F));
            at += 2;
        }
    }
    buffer.resize(static_cast<std::size_t>(out - buffer.data()));
}

} // namespace vandrel
