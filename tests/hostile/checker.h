/// What a document of any format promises, checked.
#pragma once

#include "tests/hostile/visitors.h"

#include <gtest/gtest.h>

/// What holds of every document, whatever text it was loaded from and whatever memory was missing.
class CChecker : public CVisitor<CChecker>
{
  public:
    void Line(const wchar_t*, CSys_String& text)
    {
        const wchar_t* const found = text.Get();
        const std::size_t length = std::wcslen(found);
        Promise(std::wcscspn(found, L"\r\n") == length, "a text of one line has no line end");
        Promise(length == 0 || (found[0] != L' ' && found[length - 1] != L' '), "blanks around a text are left out");
    }

    void Text(const wchar_t*, CSys_String&)
    {
    }

    template <class T> void Block(const wchar_t* keyword, T& record)
    {
        if constexpr (std::is_base_of_v<CFile_IOObject, T>)
            Promise(record.Save(&closed) == 0, "a record without a block saves nothing");
        CVisitor::Block(keyword, record);
    }

    template <class T> void Option(const wchar_t*, T& value, std::initializer_list<SKeyword> names, T absent)
    {
        Promise(value == absent || static_cast<std::size_t>(value) < names.size(), "an option is one of its words");
    }

    template <class TList> void Blocks(const wchar_t* keyword, TList& list, unsigned most = 0xFFFFFFFF)
    {
        CheckList(keyword, list);
        Promise(list.NumItems <= most, "there are no more records than the format knows");
        CVisitor::Blocks(keyword, list);
    }

    template <class T> void List(const wchar_t* heading, const wchar_t* keyword, TArray<T>& list)
    {
        CheckList(keyword, list);
        CVisitor::List(heading, keyword, list);
    }

    void Promise(bool iskept, const char* what)
    {
        if (!iskept && !isbroken)
            ADD_FAILURE() << "broken: " << what;
        isbroken = isbroken || !iskept;
    }

    std::map<std::wstring, std::uint32_t> longest; ///< Elements in the longest list of each keyword.

  private:
    template <class TList> void CheckList(const wchar_t* keyword, TList& list)
    {
        longest[keyword] = std::max(longest[keyword], list.NumItems);
        Promise(list.NumItems <= list.Capacity, "a list has room for what it holds");
        Promise(list.Items != nullptr || list.Capacity == 0, "a list without a block has no room");
        if constexpr (std::is_pointer_v<std::remove_reference_t<decltype(*list.Items)>>)
            for (auto* const element : list)
                Promise(element != nullptr, "an owned element is there");
    }

    CFile_Saver closed;
    bool isbroken = false;
};
