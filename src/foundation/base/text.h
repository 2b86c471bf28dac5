// CText, the text value of the toolkit: one pointer to a shared, immutable, zero-terminated UTF-8
// buffer.
//
// Copying shares the buffer: one atomic increment, no allocation. Texts may therefore cross
// threads; one CText object is still used by one thread at a time. Null and a buffer of length 0
// are both the empty text. Bytes are kept as they are given, well-formed or not. A text that would
// exceed 2^32 - 1 bytes throws std::length_error.
#pragma once

#include <atomic>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace Kesto {

// The shared record. Its bytes follow it in the same allocation.
class CTextBuffer {
public:
    // A record with one reference and `byteLength` bytes to be written. The terminating zero after
    // them is in place.
    static CTextBuffer* Make(std::size_t byteLength);

    CTextBuffer(const CTextBuffer&) = delete;
    CTextBuffer& operator=(const CTextBuffer&) = delete;
    virtual ~CTextBuffer() = default;

    char* Bytes() { return fBytes; }
    std::uint32_t ByteLength() const { return fByteLength; }
    std::uint32_t CharCount() const { return fCharCount; }

    // To be called once, when all bytes are written.
    void SetCharCount(std::size_t count) { fCharCount = static_cast<std::uint32_t>(count); }

    void Retain() { fReferences.fetch_add(1, std::memory_order_relaxed); }
    void Release()
    {
        if (fReferences.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

    static void operator delete(void* record) { ::operator delete(record); }

private:
    // Bytes to allocate after the record.
    struct Room {
        std::size_t bytes;
    };
    static void* operator new(std::size_t size, Room room)
    {
        return ::operator new(size + room.bytes);
    }
    static void operator delete(void* record, Room) { ::operator delete(record); }

    explicit CTextBuffer(std::uint32_t byteLength);

    char* fBytes;
    std::uint32_t fByteLength;
    std::uint32_t fCharCount = 0;
    std::atomic<std::uint32_t> fReferences{1};
};

// What a text can be made of and compared with: views, strings, literals.
template <class T>
concept TextLike = std::convertible_to<const T&, std::string_view>;

class CText {
public:
    CText() = default;
    CText(const char* utf8); // null is the empty text
    template <TextLike T>
    CText(const T& utf8) : fBuffer(MakeBuffer({std::string_view(utf8)}))
    {
    }
    CText(const CText& other) noexcept : fBuffer(other.fBuffer)
    {
        if (fBuffer != nullptr)
            fBuffer->Retain();
    }
    CText(CText&& other) noexcept : fBuffer(std::exchange(other.fBuffer, nullptr)) {}
    ~CText()
    {
        if (fBuffer != nullptr)
            fBuffer->Release();
    }
    CText& operator=(CText other) noexcept
    {
        std::swap(fBuffer, other.fBuffer);
        return *this;
    }

    // All parts one after the other, in one allocation.
    static CText Join(std::initializer_list<std::string_view> parts);

    // Lone surrogates keep their value as characters of three bytes.
    static CText FromUtf16(std::u16string_view utf16);
    std::u16string Utf16() const;

    bool IsEmpty() const { return ByteLength() == 0; }
    std::uint32_t ByteLength() const { return fBuffer == nullptr ? 0 : fBuffer->ByteLength(); }
    std::uint32_t CharCount() const { return fBuffer == nullptr ? 0 : fBuffer->CharCount(); }

    // Valid until the last text that shares the buffer is changed or destroyed. Never null.
    const char* CStr() const { return fBuffer == nullptr ? "" : fBuffer->Bytes(); }
    std::string_view View() const { return {CStr(), ByteLength()}; }

    // True if both are one buffer, or both have none.
    bool SharesBufferWith(const CText& other) const { return fBuffer == other.fBuffer; }

    void Clear() { *this = CText(); }

    // Makes a new text of the two; a builder of many pieces uses std::string or Join.
    CText& Append(std::string_view utf8);
    CText& operator+=(const CText& other) { return Append(other.View()); }
    template <TextLike T>
    CText& operator+=(const T& utf8)
    {
        return Append(std::string_view(utf8));
    }

    // By bytes, which is by character values.
    friend bool operator==(const CText& a, const CText& b)
    {
        return a.fBuffer == b.fBuffer || a.View() == b.View();
    }
    friend std::strong_ordering operator<=>(const CText& a, const CText& b)
    {
        return a.View() <=> b.View();
    }
    template <TextLike T>
    friend bool operator==(const CText& a, const T& b)
    {
        return a.View() == std::string_view(b);
    }
    template <TextLike T>
    friend std::strong_ordering operator<=>(const CText& a, const T& b)
    {
        return a.View() <=> std::string_view(b);
    }

private:
    static CTextBuffer* MakeBuffer(std::initializer_list<std::string_view> parts);

    CTextBuffer* fBuffer = nullptr; // one reference is held
};

} // namespace Kesto
