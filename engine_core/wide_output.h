/// A growing wide text that formatted text is put into.
#pragma once

#include "core/memory_manager.h"
#include "engine_core/text_format.h"

#include <algorithm>
#include <iterator>

/// Gathers formatted text in a block of its own, so that an argument may be the string being set.
class CWideOutput
{
  public:
    // cppcheck-suppress uninitMemberVar ; its buffers are written before they are read
    CWideOutput() = default;
    CWideOutput(const CWideOutput&) = delete;
    CWideOutput& operator=(const CWideOutput&) = delete;

    ~CWideOutput()
    {
        if (text != inside)
            ReleaseBlock(text);
    }

    void PutText(const wchar_t* from, std::size_t count)
    {
        if (wchar_t* to = Reserve(count))
            std::copy_n(from, count, to);
    }

    char* ReserveNumber()
    {
        return number;
    }

    void TakeNumber(std::size_t count)
    {
        if (wchar_t* to = Reserve(count))
            std::copy_n(number, count, to);
    }

    /// The text, closed by a NUL; shorter than it should be when IsWhole says no.
    const wchar_t* GetText() const
    {
        text[length] = L'\0';
        return text;
    }

    std::size_t GetLength() const
    {
        return length;
    }

    bool IsWhole() const
    {
        return iswhole;
    }

  private:
    wchar_t* Reserve(std::size_t count)
    {
        if (count >= capacity - length && !Grow(std::max(capacity * 2, length + count + 1)))
            return nullptr;
        wchar_t* const to = text + length;
        length += count;
        return to;
    }

    bool Grow(std::size_t newcapacity)
    {
        void* block =
            ResizeBlock(text == inside ? nullptr : text, capacity * sizeof(wchar_t), newcapacity * sizeof(wchar_t));
        if (block == nullptr)
        {
            iswhole = false;
            return false;
        }
        if (text == inside)
            std::copy_n(inside, length, static_cast<wchar_t*>(block));
        text = static_cast<wchar_t*>(block);
        capacity = newcapacity;
        return true;
    }

    char number[NumberCapacity];
    wchar_t inside[256];
    wchar_t* text = inside;
    std::size_t length = 0;
    std::size_t capacity = std::size(inside);
    bool iswhole = true;
};
