/// What the adapters' descriptions have in common: names, counts and what looks wrong.
#pragma once

#include "core/sys_string.h"
#include "tools/utf8.h"

#include <map>
#include <ostream>
#include <string>
#include <vector>

inline std::string Name(const CSys_String& text)
{
    return text.IsEmpty() ? "(unnamed)" : ToUtf8(text.Get());
}

/// "3 lights", "1 light"; names ending in "s" are the caller's to spell.
inline std::string Count(unsigned long count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// Gathers what looks wrong, and how often, so that a bad mesh does not fill the screen.
class CSuspicions
{
  public:
    void Add(const std::string& where, const std::string& what)
    {
        const auto [entry, isnew] = counts.try_emplace(where + ": " + what, 0);
        if (isnew)
            order.push_back(entry->first);
        ++entry->second;
    }

    void Print(std::ostream& out) const
    {
        if (!order.empty())
            out << "suspicious:\n";
        for (const std::string& text : order)
        {
            const unsigned long count = counts.at(text);
            out << "  " << text << (count == 1 ? "" : " (" + std::to_string(count) + " times)") << '\n';
        }
    }

  private:
    std::map<std::string, unsigned long> counts;
    std::vector<std::string> order;
};
