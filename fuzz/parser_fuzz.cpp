/// The text parser against a plain reading of the same bytes, and any mixture of its operations, from memory and
/// from a file that is read piece by piece. The first byte draws the size of the pieces, the second counts the
/// bytes behind it that draw operations; the rest is the text, which is then read to its end.
#include "core/file_parser.h"
#include "fuzz/fuzz.h"

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>

namespace
{
/// What the parser promises, worked out anew from the bytes at each step.
class CPlainParser
{
  public:
    explicit CPlainParser(std::string_view newbytes) : bytes(newbytes)
    {
        if (bytes.starts_with("\xEF\xBB\xBF"))
            offset = begin = 3;
        else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        {
            offset = begin = unitsize = 2;
            isbigendian = bytes[0] == '\xFE';
        }
    }

    std::size_t begin = 0;
    std::size_t offset = 0;
    long depth = 0;
    bool opens = false;
    std::wstring line;

    /// What another parser is given to read, which has no mark but the same encoding.
    CPlainParser GetRest() const
    {
        CPlainParser rest(*this);
        rest.bytes.remove_prefix(offset);
        rest.begin = rest.offset = 0;
        rest.depth = 0;
        rest.opens = false;
        return rest;
    }

    Result GetLine(std::size_t capacity)
    {
        if (capacity == 0)
            return 0;
        const bool isread = ReadLine(capacity);
        if (whole == L"}" && depth > 0)
            --depth;
        return isread ? 1 : 0;
    }

    Result GetBlockLine()
    {
        while (ReadLine(CFile_Parser::BlockLineCapacity))
        {
            if (whole == L"{")
                continue;
            if (whole != L"}")
                return 1;
            --depth;
            break;
        }
        opens = false;
        line.clear();
        return 0;
    }

    void SetOffset(std::size_t newoffset)
    {
        offset = std::clamp(newoffset, begin, bytes.size());
    }

    std::size_t GetLineNumber() const
    {
        std::size_t number = 1;
        for (std::size_t at = begin; at + unitsize <= offset; at += unitsize)
            number += GetUnit(at) == '\n' || (GetUnit(at) == '\r' && GetUnit(at + unitsize) != '\n') ? 1 : 0;
        return number;
    }

  private:
    static constexpr std::uint32_t None = ~std::uint32_t{0};

    std::uint32_t GetUnit(std::size_t at) const
    {
        if (at + unitsize > bytes.size())
            return None;
        const std::uint32_t first = static_cast<unsigned char>(bytes[at]);
        if (unitsize == 1)
            return first;
        const std::uint32_t second = static_cast<unsigned char>(bytes[at + 1]);
        return isbigendian ? first << 8 | second : second << 8 | first;
    }

    static bool IsLineEnd(std::uint32_t unit)
    {
        return unit == '\n' || unit == '\r' || unit == None;
    }

    std::uint32_t DecodeUtf16(std::size_t& at) const
    {
        const std::uint32_t unit = GetUnit(at);
        const std::uint32_t next = GetUnit(at + 2);
        at += 2;
        if (unit < 0xD800 || unit > 0xDFFF)
            return unit;
        if (unit > 0xDBFF || next < 0xDC00 || next > 0xDFFF)
            return 0xFFFD;
        at += 2;
        return 0x10000 + (unit - 0xD800) * 0x400 + (next - 0xDC00);
    }

    std::uint32_t DecodeUtf8(std::size_t& at) const
    {
        static constexpr char32_t windows[] = U"€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x8dŽ\x8f\x90‘’“”•–—˜™š›œ\x9džŸ";
        const std::uint32_t lead = GetUnit(at);
        const std::size_t more = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF8 ? 3 : 0;
        std::uint32_t code = lead & (0x3FU >> more);
        std::size_t good = 0;
        for (; good < more && (GetUnit(at + good + 1) & ~0x3FU) == 0x80; ++good)
            code = code << 6 | (GetUnit(at + good + 1) & 0x3FU);
        static constexpr std::uint32_t least[] = {0, 0x80, 0x800, 0x10000};
        const bool iswhole =
            more != 0 && good == more && code >= least[more] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
        at += iswhole ? more + 1 : 1;
        return iswhole ? code : lead >= 0x80 && lead < 0xA0 ? windows[lead - 0x80] : lead;
    }

    static void Trim(std::wstring& text)
    {
        text.erase(text.find_last_not_of(L" \t") + 1);
        text.erase(0, text.find_first_not_of(L" \t"));
    }

    /// As many characters as fit, those outside the basic plane counted twice.
    static std::wstring Cut(const std::wstring& text, std::size_t room)
    {
        std::size_t count = 0;
        for (const wchar_t letter : text)
        {
            const std::size_t places = letter < 0x10000 ? 1 : 2;
            if (places > room)
                break;
            room -= places;
            ++count;
        }
        return text.substr(0, count);
    }

    bool ReadLine(std::size_t capacity)
    {
        depth = std::max(depth, 0L);
        opens = false;
        for (;;)
        {
            whole.clear();
            std::size_t at = offset;
            while (!IsLineEnd(GetUnit(at)))
            {
                const std::uint32_t code = unitsize == 1 ? DecodeUtf8(at) : DecodeUtf16(at);
                whole += code == 0 ? L' ' : static_cast<wchar_t>(code);
            }
            Trim(whole);
            const bool islast = GetUnit(at) == None;
            if (!whole.empty() && !whole.starts_with(L"//") && !whole.starts_with(L"#"))
            {
                offset = at;
                break;
            }
            offset = islast ? bytes.size() : at + unitsize;
            if (islast)
            {
                line = whole = L"";
                return false;
            }
        }
        line = Cut(whole, capacity - 1);
        Trim(line);
        opens = whole.ends_with(L'{') && std::count(whole.begin(), whole.end(), L'"') % 2 == 0;
        depth += opens ? 1 : 0;
        return true;
    }

    std::string_view bytes;
    std::size_t unitsize = 1;
    bool isbigendian = false;
    std::wstring whole; ///< The line before it was cut.
};

/// A file without a place on a disk.
class CMemoryFile
{
  public:
    explicit CMemoryFile(std::string_view text) : descriptor(memfd_create("text", 0))
    {
        Check(write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size()));
        name = "/proc/self/fd/" + std::to_string(descriptor);
    }
    CMemoryFile(const CMemoryFile&) = delete;
    CMemoryFile& operator=(const CMemoryFile&) = delete;
    ~CMemoryFile()
    {
        close(descriptor);
    }

    const char* GetName() const
    {
        return name.c_str();
    }

  private:
    int descriptor;
    std::string name;
};

class CComparison
{
  public:
    explicit CComparison(std::string_view text) : plain(text), parser(&parsers[0])
    {
        parser->Open(text.data(), text.size());
    }

    CComparison(std::string_view text, const CMemoryFile& file, std::size_t piecesize)
        : plain(text), parser(&parsers[0])
    {
        Check(parser->OpenFile(file.GetName(), piecesize) == 1);
    }

    void Do(unsigned operation)
    {
        static constexpr unsigned long capacities[] = {0, 1, 2, 3, 9, 100, CFile_Parser::BlockLineCapacity, 5000};
        const unsigned argument = operation / 8;
        switch (operation % 8)
        {
        case 0:
            Check(parser->GetLineNumber() == plain.GetLineNumber());
            break;
        case 1:
            GetLine(capacities[argument % std::size(capacities)]);
            break;
        case 2:
            Read(argument);
            break;
        case 3: // the line is given back
            SetOffset(before);
            break;
        case 4:
            SetOffset(argument == 31 ? ~std::size_t{0} : argument * std::size_t{8});
            break;
        case 5:
            TakeRest();
            break;
        default:
            GetBlockLine();
            break;
        }
        CheckState();
    }

    void ReadToEnd()
    {
        while (plain.offset < parser->GetSize())
            Do(6);
        Do(0);
        Do(6);
    }

  private:
    void GetLine(unsigned long capacity)
    {
        before = plain.offset;
        const std::vector<wchar_t> untouched(capacity + 1, L'?');
        std::vector<wchar_t> line(untouched.begin(), untouched.begin() + static_cast<std::ptrdiff_t>(capacity));
        Check(parser->GetLine(line.data(), capacity) == plain.GetLine(capacity));
        Check(capacity == 0 || plain.line == line.data());
    }

    void GetBlockLine()
    {
        before = plain.offset;
        std::vector<wchar_t> line(CFile_Parser::BlockLineCapacity);
        Check(parser->GetBlockLine(line.data()) == plain.GetBlockLine());
        Check(plain.line == line.data());
    }

    void Read(std::size_t count)
    {
        std::vector<char> raw(count);
        const std::size_t expected = std::min(count, parser->GetSize() - plain.offset);
        Check(parser->Read(raw.data(), count) == expected);
        plain.offset += expected;
    }

    void SetOffset(std::size_t offset)
    {
        parser->SetOffset(offset);
        plain.SetOffset(offset);
    }

    void TakeRest()
    {
        CFile_Parser* const other = parser == &parsers[0] ? &parsers[1] : &parsers[0];
        Check(other->Add(*parser) == 1);
        parser = other;
        plain = plain.GetRest();
        before = 0;
    }

    void CheckState()
    {
        Check(parser->GetOffset() == plain.offset);
        Check(parser->GetBlockDepth() == plain.depth);
        Check(parser->OpensBlock() == plain.opens);
    }

    CPlainParser plain;
    CFile_Parser parsers[2];
    CFile_Parser* parser;
    std::size_t before = 0;
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return Watch(bytes, size,
                 [](CInput& input)
                 {
                     const std::size_t piecesize = input.Take() % 128 + std::size_t{1};
                     std::vector<unsigned> operations(input.Take() % 64);
                     for (unsigned& operation : operations)
                         operation = input.Take();
                     const CInput text = input.GetRest();
                     const CMemoryFile file(text.GetText());
                     CComparison frommemory(text.GetText());
                     CComparison fromfile(text.GetText(), file, piecesize);
                     for (CComparison* const comparison : {&frommemory, &fromfile})
                     {
                         for (const unsigned operation : operations)
                             comparison->Do(operation);
                         comparison->ReadToEnd();
                     }
                 });
}
