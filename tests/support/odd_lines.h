/// Lines that are almost plain. A UTF-8 text is read in place as far as its lines are plain, a UTF-16 text is not:
/// both must say the same.
#pragma once

#include "core/word_helpers.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

/// What may stand in the place of a number, and what may follow it.
inline std::vector<std::string> GetOddities()
{
    using namespace std::string_view_literals;
    static constexpr std::string_view oddities =
        "|+1|-1|--1|-|.|-.5|1.|01|1.5|1.5-2.5|1,5|1e3|1E|0x1F|nan|-inf|x|123456789|1234567890|99999999999|16777217|"
        "123456.123456789|12345678.12345678|123456789012345678901234567890|0.000000000000001|0.0000000000000001|"
        "1 {|{|1{|}|1}|\"1\"|1\"|\"|\"a b\"|\xE9|1\xE9|1\xA0|\t1\t|\x7F|1\x01|\0|1\0|\0001|1//|#|"
        "1 // 2|1\r|1\r\n|1\n\n|1\n// 2\n|1\n #\n|1\n/\n|1\n}\n|1\n}\n}\n|1\n*ODD {\n*MESH_VERTEX 0 9 9 9\n}\n|"
        "1\n*MESH_VERTEX 9|1\n*MESH_VERTEXNORMAL 9 9 9 9\n|1 2|1,2|1;|1;2|1;,|;|,|; 1|1 ;|1;;2|1;,2;3;,4|1 ,|1;// 2|"
        "1;2;}\n|1;\n2;3;,\n|1\nMeshTextureCoords {\n1;\n9;9;;\n}\n"sv;
    std::vector<std::string> all = Split(oddities, '|');
    for (std::size_t blanks = 1960; blanks < 2050; ++blanks) // a line ends anywhere in this number
        all.push_back(std::string(blanks, ' ') + "1234567");
    return all;
}

/// An entry three times, which says something odd at its '@' the third time.
inline std::string WriteOddLines(std::string entry, std::string_view oddity)
{
    const std::size_t at = entry.find('@');
    const std::string plain = std::string(entry).replace(at, 1, "1") + "\n";
    return plain + plain + entry.replace(at, 1, oddity) + "\n";
}

/// Whether `describe` says of a text in UTF-8 what it says of the same in UTF-16. Line ends are added, since
/// nothing is read in place close to the text's end.
template <class TDescribe> testing::AssertionResult IsReadInPlaceAsLineByLine(std::string text, TDescribe describe)
{
    text.append(LongestKeyword + 1, '\n');
    const std::string inplace = describe(text);
    const std::string linebyline = describe(WidenBytes(text));
    if (inplace == linebyline)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(text) << "\n"
                                       << inplace << "\nin place, but line by line\n"
                                       << linebyline;
}
