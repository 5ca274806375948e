#pragma once

#include <cstddef>

/// Decodes one whole UTF-8 text for the profile parser, which takes this class as its converter. It
/// refuses every text that is not well formed: stray and missing continuation bytes, longer forms
/// than needed, surrogates, and code points beyond U+10FFFF. @p Unit decides the form of the
/// output: UTF-16 when it is two bytes wide (wchar_t on Windows), UTF-32 otherwise.
template <typename Unit>
class StrictUtf8
{
public:
    /// The parser says whether the stored text is UTF-8; here it always is.
    explicit StrictUtf8(bool /*storedAsUtf8*/) {}

    /// The number of units that @p length bytes decode to; size_t(-1) when they are not well
    /// formed.
    std::size_t SizeFromStore(const char* bytes, std::size_t length) const
    {
        std::size_t size = 0;
        const bool valid = ForEachCodePoint(
            bytes, length, [&size](char32_t codePoint) { size += UnitsOf(codePoint); });
        return valid ? size : static_cast<std::size_t>(-1);
    }

    /// Decodes into @p output, which has room for @p room units; false when the bytes are not well
    /// formed or do not fit. Adds no terminating zero.
    bool ConvertFromStore(const char* bytes, std::size_t length, Unit* output,
                          std::size_t room) const
    {
        const Unit* const end = output + room;
        bool fits = true;
        const bool valid = ForEachCodePoint(bytes, length, [&](char32_t codePoint) {
            fits = fits && static_cast<std::size_t>(end - output) >= UnitsOf(codePoint);
            if (fits)
                output = Append(codePoint, output);
        });
        return valid && fits;
    }

private:
    /// One length of code point beyond ASCII: which lead bytes announce it and what it may encode.
    struct Form
    {
        unsigned char firstLead, lastLead;
        unsigned char payloadMask;
        int trailingBytes;
        char32_t smallest;
    };
    static constexpr Form kForms[] = {
        {0xC0, 0xDF, 0x1F, 1, 0x80},
        {0xE0, 0xEF, 0x0F, 2, 0x800},
        {0xF0, 0xF7, 0x07, 3, 0x10000},
    };
    static constexpr char32_t kLastAscii = 0x7F;
    static constexpr char32_t kLargestCodePoint = 0x10FFFF;
    static constexpr char32_t kFirstBeyondOneUtf16Unit = 0x10000;

    /// A trailing byte is 10 and six bits of the code point.
    static constexpr unsigned char kTrailingMarkMask = 0xC0;
    static constexpr unsigned char kTrailingMark = 0x80;
    static constexpr unsigned char kTrailingPayloadMask = 0x3F;
    static constexpr int kTrailingPayloadBits = 6;

    /// Two UTF-16 surrogates hold ten bits of a code point each.
    static constexpr char32_t kFirstHighSurrogate = 0xD800;
    static constexpr char32_t kFirstLowSurrogate = 0xDC00;
    static constexpr char32_t kLastSurrogate = 0xDFFF;
    static constexpr char32_t kLowSurrogatePayloadMask = 0x3FF;
    static constexpr int kSurrogatePayloadBits = 10;

    static constexpr bool IsSurrogate(char32_t codePoint)
    {
        return codePoint >= kFirstHighSurrogate && codePoint <= kLastSurrogate;
    }

    template <typename Visit>
    static bool ForEachCodePoint(const char* bytes, std::size_t length, Visit visit)
    {
        auto at = reinterpret_cast<const unsigned char*>(bytes);
        const unsigned char* const end = at + length;
        while (at != end) {
            char32_t codePoint = *at;
            if (codePoint <= kLastAscii)
                ++at; // nearly all of a skin, so it goes the short way
            else if (!DecodeOne(at, end, codePoint))
                return false;
            visit(codePoint);
        }
        return true;
    }

    static bool DecodeOne(const unsigned char*& at, const unsigned char* end, char32_t& codePoint)
    {
        const unsigned char lead = *at++;
        for (const Form& form : kForms) {
            if (lead < form.firstLead || lead > form.lastLead)
                continue;
            if (end - at < form.trailingBytes)
                return false;
            codePoint = lead & form.payloadMask;
            for (int i = 0; i < form.trailingBytes; ++i, ++at) {
                if ((*at & kTrailingMarkMask) != kTrailingMark)
                    return false;
                codePoint = (codePoint << kTrailingPayloadBits) |
                            static_cast<char32_t>(*at & kTrailingPayloadMask);
            }
            return codePoint >= form.smallest && codePoint <= kLargestCodePoint &&
                   !IsSurrogate(codePoint);
        }
        return false;
    }

    static constexpr std::size_t UnitsOf(char32_t codePoint)
    {
        return sizeof(Unit) == 2 && codePoint >= kFirstBeyondOneUtf16Unit ? 2 : 1;
    }

    static Unit* Append(char32_t codePoint, Unit* output)
    {
        if (UnitsOf(codePoint) == 2) {
            const char32_t offset = codePoint - kFirstBeyondOneUtf16Unit;
            *output++ = static_cast<Unit>(kFirstHighSurrogate + (offset >> kSurrogatePayloadBits));
            *output++ = static_cast<Unit>(kFirstLowSurrogate + (offset & kLowSurrogatePayloadMask));
        } else {
            *output++ = static_cast<Unit>(codePoint);
        }
        return output;
    }
};
