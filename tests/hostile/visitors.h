/// What can be done with a document of any format, told once for all of them: fill it at random, describe it whole,
/// write it in the form that its Load reads.
///
/// A visitor is handed every field of a document by the Visit functions of the format, each with its keyword.
#pragma once

#include "core/block_writer.h"
#include "core/core_templates.h"
#include "core/file_io_object.h"
#include "core/file_saver.h"
#include "core/math_color.h"
#include "core/math_vector3.h"
#include "core/sys_string.h"
#include "core/word_helpers.h"
#include "tests/support/random_texts.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cwchar>
#include <initializer_list>
#include <limits>
#include <map>
#include <set>
#include <string>

template <class T>
concept CIsPlain = std::is_arithmetic_v<T> || std::is_same_v<T, CMath_Vector3> || std::is_same_v<T, CMath_Color>;

template <class T> T& GetElement(T& element)
{
    return element;
}
template <class T> T& GetElement(T* element)
{
    return *element;
}

/// What visitors have in common; each hides what it does otherwise.
template <class TSelf> class CVisitor
{
  public:
    static constexpr bool Fills = false;

    template <class T> void Field(const wchar_t*, T&)
    {
    }

    template <class T> void Block(const wchar_t*, T& record)
    {
        Visit(Self(), record);
    }

    /// Keywords and fields in turn: numbers, vectors and colours, texts of a line, records and lists of records.
    template <class T, class... TMore> void Fields(const wchar_t* keyword, T& value, TMore&&... more)
    {
        if constexpr (CIsPlain<T>)
            Self().Field(keyword, value);
        else if constexpr (std::is_same_v<T, CSys_String>)
            Self().Line(keyword, value);
        else if constexpr (requires { value.NumItems; })
            Self().Blocks(keyword, value);
        else
            Self().Block(keyword, value);
        if constexpr (sizeof...(more) != 0)
            Fields(std::forward<TMore>(more)...);
    }

    /// A list of records with a block each. most: how many there may be.
    template <class TList> void Blocks(const wchar_t* keyword, TList& list, unsigned = 0)
    {
        for (auto&& element : list)
            Self().Block(keyword, GetElement(element));
    }

    /// A list of entries of a line each, in a block of its own where it has a heading.
    template <class T> void List(const wchar_t*, const wchar_t* keyword, TArray<T>& list)
    {
        for (T& element : list)
            Entry(keyword, element);
    }

    template <class T> void Entry(const wchar_t* keyword, T& element)
    {
        if constexpr (CIsPlain<T>)
            Self().Field(keyword, element);
        else
            Visit(Self(), element);
    }

    /// One of the words, by its position; `absent` when the text names none of them.
    template <class T>
    void Option(const wchar_t* keyword, T& value, std::initializer_list<SKeyword>, [[maybe_unused]] T absent)
    {
        Self().Field(keyword, value);
    }

    void Line(const wchar_t*, CSys_String&)
    {
    }

    /// A text of any content.
    void Text(const wchar_t* keyword, CSys_String& text)
    {
        Self().Line(keyword, text);
    }

    void Promise(bool, const char*)
    {
    }

  protected:
    TSelf& Self()
    {
        return static_cast<TSelf&>(*this);
    }
};

/// Fills an empty document with whatever its text could say.
class CFiller : public CVisitor<CFiller>
{
  public:
    static constexpr bool Fills = true;

    enum EStyle
    {
        Exact,     ///< Floats of any bits.
        SixDigits, ///< Floats that six decimals hold.
    };

    /// mostitems: of each list of records; 1 gives one of each, with `entries` in each of its lists. Else lists of
    /// entries are now and then longer than an array's first block.
    CFiller(unsigned seed, EStyle newstyle, bool newisquoted, unsigned newmostitems, unsigned newentries)
        : random(seed), style(newstyle), isquoted(newisquoted), mostitems(newmostitems), entries(newentries)
    {
    }

    template <class T> void Field(const wchar_t*, T& value)
    {
        if constexpr (std::is_same_v<T, CMath_Vector3>)
            value = {Float(), Float(), Float()};
        else if constexpr (std::is_same_v<T, CMath_Color>)
            value = {Float(), Float(), Float(), 1.0F};
        else if constexpr (std::is_same_v<T, float>)
            value = Float();
        else
            value = static_cast<T>(random.Number(2) == 0 ? random.Number(10) : random.Number(0xFFFFFFFF));
    }

    void Line(const wchar_t*, CSys_String& text)
    {
        text = (isquoted ? L"\"" + random.Name() + L"\"" : random.Name()).c_str();
    }

    void Text(const wchar_t*, CSys_String& text)
    {
        text = random.Text().c_str();
    }

    template <class T> void Option(const wchar_t*, T& value, std::initializer_list<SKeyword> names, T absent)
    {
        const unsigned choice = random.Number(static_cast<unsigned>(names.size()) + 1);
        value = choice < names.size() ? static_cast<T>(choice) : absent;
    }

    template <class TList> void Blocks(const wchar_t*, TList& list, unsigned most = 0xFFFFFFFF)
    {
        ++level;
        unsigned count = level > 2 ? 0 : 1;
        if (mostitems != 1)
            count = level > mostitems ? 0 : random.Number(mostitems + 2 - level);
        for (unsigned i = 0; i < std::min(count, most); ++i)
            if (auto* const record = list.Add())
                Visit(*this, *record);
        --level;
    }

    template <class T> void List(const wchar_t* heading, const wchar_t* keyword, TArray<T>& list)
    {
        unsigned count = entries;
        if (mostitems != 1)
            count = random.Number(random.Number(30) != 0 ? 5 : 300);
        for (; count != 0; --count)
            list.Add();
        CVisitor::List(heading, keyword, list);
    }

    unsigned Number(unsigned below)
    {
        return random.Number(below);
    }

  private:
    float Float()
    {
        using CLimits = std::numeric_limits<float>;
        static constexpr float awkward[] = {0.1F,        -0.0F, CLimits::denorm_min(), CLimits::max(),
                                            1.0F / 3.0F, 1e-7F, -CLimits::infinity(),  16777217.0F};
        const unsigned any = random.Number(0xFFFFFFFF);
        const float exact = std::bit_cast<float>(any);
        if (style == SixDigits || std::isnan(exact) || any % 4 == 0)
            return static_cast<float>(static_cast<int>(any % 2'000'000) - 1'000'000) / 64.0F;
        if (any % 8 == 1)
            return awkward[any / 8 % std::size(awkward)];
        return exact;
    }

    CRandomTexts random;
    EStyle style;
    bool isquoted;
    unsigned mostitems;
    unsigned entries;
    unsigned level = 0;
};

/// A text that differs where any field differs; floats show every bit but a not-a-number's.
class CDescriber : public CVisitor<CDescriber>
{
  public:
    template <class T> void Field(const wchar_t* keyword, T& value)
    {
        Key(keyword);
        if constexpr (std::is_same_v<T, CMath_Vector3>)
            Numbers({value.x, value.y, value.z});
        else if constexpr (std::is_same_v<T, CMath_Color>)
            Numbers({value.r, value.g, value.b, value.a});
        else if constexpr (std::is_same_v<T, float>)
            Numbers({value});
        else
            text += ' ' + std::to_string(value);
    }

    void Line(const wchar_t* keyword, CSys_String& value)
    {
        Key(keyword);
        text += ' ';
        for (const wchar_t* at = value.Get(); *at != L'\0'; ++at)
            if (*at >= L' ' && *at < 0x7F)
                text += static_cast<char>(*at);
            else
                text += '\\' + std::to_string(static_cast<unsigned long>(*at));
    }

    template <class T> void Block(const wchar_t* keyword, T& record)
    {
        Key(keyword);
        CVisitor::Block(keyword, record);
        text += '.';
    }

    template <class T> void List(const wchar_t* heading, const wchar_t* keyword, TArray<T>& list)
    {
        Key(heading);
        text += std::to_string(list.NumItems);
        CVisitor::List(heading, keyword, list);
    }

    std::string text;

  private:
    void Key(const wchar_t* keyword)
    {
        text += '\n';
        for (; *keyword != L'\0'; ++keyword)
            text += static_cast<char>(*keyword);
    }

    void Numbers(std::initializer_list<float> numbers)
    {
        for (const float number : numbers)
        {
            char digits[64];
            text += ' ';
            if (std::isnan(number))
                text += "nan";
            else
                text.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
        }
    }
};

/// Every entry of every list, with its keyword.
class CEntries : public CVisitor<CEntries>
{
  public:
    template <class T> void List(const wchar_t*, const wchar_t* keyword, TArray<T>& list)
    {
        for (T& element : list)
        {
            CDescriber entry;
            entry.Line(keyword, name);
            entry.Entry(keyword, element);
            all.insert(entry.text);
        }
    }

    std::set<std::string> all;

  private:
    CSys_String name;
};

/// Writes lines of keyword and value. Blocks open on their keyword's line, as in ASE, or have no braces at all.
class CTextWriter : public CVisitor<CTextWriter>
{
  public:
    explicit CTextWriter(bool newhasbraces) : hasbraces(newhasbraces)
    {
        saver.OpenMemory();
    }

    template <class T> void Field(const wchar_t* keyword, const T& value)
    {
        if constexpr (std::is_integral_v<T>)
            WriteLine(&saver, L"%s %d", keyword, static_cast<std::int32_t>(value));
        else if constexpr (std::is_same_v<T, float>)
            WriteLine(&saver, L"%s %.9g", keyword, value);
        else
            WriteLine(&saver, L"%s %.9g %.9g %.9g", keyword, value);
    }

    void Line(const wchar_t* keyword, const CSys_String& text)
    {
        WriteLine(&saver, L"%s %s", keyword, text);
    }

    template <class T> void Option(const wchar_t* keyword, T& value, std::initializer_list<SKeyword> names, T)
    {
        if (static_cast<std::size_t>(value) < names.size())
            saver.Write(0, L"%s %s", keyword, (names.begin() + value)->text);
    }

    template <class T> void Block(const wchar_t* keyword, T& record)
    {
        Open(keyword);
        CVisitor::Block(keyword, record);
        Close();
    }

    template <class T> void List(const wchar_t* heading, const wchar_t* keyword, TArray<T>& list)
    {
        if (*heading != L'\0')
            Open(heading);
        for (std::uint32_t i = 0; i < list.NumItems; ++i)
            WriteEntry(*this, (keyword + (L' ' + std::to_wstring(i))).c_str(), keyword, *list[i]);
        if (*heading != L'\0')
            Close();
    }

    void Open(const wchar_t* keyword)
    {
        if (*keyword != L'\0')
            saver.Write(0, hasbraces ? L"%s {" : L"%s", keyword);
    }

    void Close()
    {
        if (hasbraces)
            saver.Write(0, L"}");
    }

    std::string GetText()
    {
        return saver.GetText();
    }

    CFile_Saver saver;

  private:
    bool hasbraces;
};
