#include "pia_tree/Container.h"

#include "files/FileAccess.h"
#include "pia_tree/Limits.h"

#include <zlib.h>

#include <cstdint>
#include <new>

namespace pia
{
namespace
{
using namespace std::string_view_literals;

constexpr auto firstLineStart = "PIAFILEVERSION_"sv;
constexpr auto secondPartStart = "PC3VER"sv;
constexpr auto compressWord = "compress"sv;
constexpr auto compressedFirstLine = "PIAFILEVERSION_2.0,PC3VER1,compress\r\n"sv;
constexpr auto plainFirstLine = "PIAFILEVERSION_2.0,PC3VER1\r\n"sv;
constexpr auto byteOrderMark = "\xEF\xBB\xBF"sv;

// What follows the first line of the compressed form: the codec, then three unsigned little-endian numbers, the
// Adler-32 of the stream, the length of the text and the length of the stream.
constexpr auto codecWord = "pmzlibcodec"sv;
constexpr std::size_t numberSize = 4;
constexpr std::size_t headSize = codecWord.size() + 3 * numberSize;
constexpr std::size_t textLengthAt = codecWord.size() + numberSize;

// The most bytes that one deflated byte can stand for.
constexpr std::size_t maxInflation = 1032;

constexpr auto damaged = "the compressed data is damaged";

std::string_view takePart(std::string_view& rest) noexcept
{
    const auto comma = rest.find(',');
    const auto part = rest.substr(0, comma);
    rest.remove_prefix(comma == rest.npos ? rest.size() : comma + 1);
    return part;
}

// Removes the first line from the file. False if it is not that of a PC3 file.
bool takeFirstLine(std::string_view& file, Form& form) noexcept
{
    const bool hasMark = file.starts_with(byteOrderMark);
    if (hasMark)
        file.remove_prefix(byteOrderMark.size());

    const auto length = file.substr(0, maxFirstLine + "\r\n"sv.size()).find('\n');
    if (length == file.npos)
        return false;
    auto line = file.substr(0, length);
    file.remove_prefix(length + 1);
    const bool hasCr = line.ends_with('\r');
    if (hasCr)
        line.remove_suffix(1);
    if (line.size() > maxFirstLine)
        return false;

    const auto version = takePart(line);
    if (!version.starts_with(firstLineStart) || version.size() == firstLineStart.size())
        return false;
    const bool isPlain = line.find(',') == line.npos;
    form = isPlain ? Form::plain : Form::compressed;
    if (!takePart(line).starts_with(secondPartStart))
        return false;
    return isPlain || (line == compressWord && hasCr && !hasMark);
}

std::uint32_t readNumber(std::string_view bytes) noexcept
{
    std::uint32_t value = 0;
    for (std::size_t i = numberSize; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

void writeNumber(char* out, std::size_t value) noexcept
{
    for (std::size_t i = 0; i < numberSize; ++i)
        out[i] = static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
}

// The codec's memory comes from the same place as all other memory, so that one counter sees it.
voidpf allocate(voidpf, uInt count, uInt size)
{
    return ::operator new (std::size_t{count} * size, std::nothrow);
}

void release(voidpf, voidpf memory)
{
    ::operator delete(memory);
}

const Bytef* bytesOf(std::string_view text) noexcept
{
    return reinterpret_cast<const Bytef*>(text.data());
}

// A codec's stream, ended exactly if it was started.
template <int (*end)(z_streamp)>
struct Stream : z_stream
{
    Stream() : z_stream{}
    {
        zalloc = allocate;
        zfree = release;
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream() { end(this); } // harmless for one that was not started

    void setInput(std::string_view text) noexcept
    {
        next_in = const_cast<Bytef*>(bytesOf(text)); // the codec only reads it
        avail_in = static_cast<uInt>(text.size());
    }
    void setOutput(files::ByteBuffer& out) noexcept
    {
        next_out = reinterpret_cast<Bytef*>(out.data() + out.size());
        avail_out = static_cast<uInt>(out.capacity() - out.size());
    }
};

const char* inflateText(std::string_view stream, std::size_t expectedLength, files::ByteBuffer& text)
{
    Stream<inflateEnd> codec;
    if (inflateInit(&codec) != Z_OK)
        throw std::bad_alloc();
    codec.setInput(stream);

    // One byte more than is allowed, to notice that there is more.
    constexpr std::size_t largest = maxTextBytes + 1;
    text = files::ByteBuffer(std::min({expectedLength, largest, stream.size() * maxInflation}));
    for (;;)
    {
        codec.setOutput(text);
        const int result = inflate(&codec, Z_FINISH);
        text.setSize(codec.total_out);
        if (text.size() > maxTextBytes)
            return "the text is too large";
        if (result == Z_STREAM_END)
            return nullptr;
        if (result == Z_MEM_ERROR)
            throw std::bad_alloc();
        // Lack of room is the only reason to continue.
        if ((result != Z_OK && result != Z_BUF_ERROR) || codec.avail_out != 0)
            return result == Z_BUF_ERROR || result == Z_OK ? "the compressed data ends too early" : damaged;
        constexpr std::size_t smallest = 4096;
        text.reserve(std::min(std::max(2 * text.capacity(), smallest), largest));
    }
}

const char* deflateText(std::string_view text, files::ByteBuffer& file)
{
    Stream<deflateEnd> codec;
    if (deflateInit(&codec, Z_DEFAULT_COMPRESSION) != Z_OK)
        throw std::bad_alloc();

    constexpr std::size_t streamAt = compressedFirstLine.size() + headSize;
    file = files::ByteBuffer(streamAt + deflateBound(&codec, static_cast<uLong>(text.size())));
    file.setSize(streamAt);
    codec.setInput(text);
    codec.setOutput(file);
    if (deflate(&codec, Z_FINISH) != Z_STREAM_END)
        return "the text could not be compressed";
    file.setSize(streamAt + codec.total_out);

    const auto stream = file.view().substr(streamAt);
    const auto checksum = adler32(adler32(0, nullptr, 0), bytesOf(stream), static_cast<uInt>(stream.size()));
    char* out = file.data();
    out += compressedFirstLine.copy(out, compressedFirstLine.npos);
    out += codecWord.copy(out, codecWord.npos);
    writeNumber(out, checksum);
    writeNumber(out + numberSize, text.size());
    writeNumber(out + 2 * numberSize, stream.size());
    return nullptr;
}
} // namespace

const char* unpack(files::ByteBuffer file, files::ByteBuffer& text)
{
    if (file.size() > files::maxFileBytes)
        return "the file is too large";
    auto rest = file.view();
    Form form = Form::compressed;
    if (!takeFirstLine(rest, form))
        return "the file is not a plotter configuration";
    if (form == Form::plain)
    {
        file.dropFront(file.size() - rest.size());
        text = std::move(file);
        return nullptr;
    }

    if (rest.size() < headSize)
        return "the file ends too early";
    if (!rest.starts_with(codecWord))
        return "the file is compressed in an unknown way";
    return inflateText(rest.substr(headSize), readNumber(rest.substr(textLengthAt)), text);
}

const char* pack(std::string_view text, Form form, files::ByteBuffer& file)
{
    if (form == Form::compressed)
    {
        if (const char* reason = deflateText(text, file))
            return reason;
    }
    else
    {
        file = files::ByteBuffer(plainFirstLine.size() + text.size());
        plainFirstLine.copy(file.data(), plainFirstLine.npos);
        text.copy(file.data() + plainFirstLine.size(), text.npos);
        file.setSize(plainFirstLine.size() + text.size());
    }
    return file.size() > files::maxFileBytes ? "the file would be too large" : nullptr;
}
} // namespace pia
