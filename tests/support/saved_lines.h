/// Cases of a table: a text goes in, and of the text that is saved only some lines count.
#pragma once

#include <gtest/gtest.h>

#include <string>

struct SSavedCase
{
    const char* name;
    const char* text;
    const char* saved[3];     ///< Runs of lines that are written, without their tabs.
    const char* left[3] = {}; ///< What is written nowhere.
};

inline void ExpectLines(const SSavedCase& row, std::string text)
{
    std::erase(text, '\t');
    for (const char* const lines : row.saved)
        EXPECT_TRUE(lines == nullptr || text.find(lines) != text.npos) << lines << "in\n" << text;
    for (const char* const word : row.left)
        EXPECT_TRUE(word == nullptr || text.find(word) == text.npos) << word << " in\n" << text;
}

/// Names the case of a row that has a name.
struct SRowName
{
    template <class TInfo> std::string operator()(const TInfo& row) const
    {
        return row.param.name;
    }
};
