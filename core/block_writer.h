/// The frame in which every record writes itself: one block of lines, each with its format.
///
///     CBlockWriter block(saver);
///     if (!block.IsOpen())
///         return 0;
///     block.Write(L"name: %s", name);
///     block.Write(L"position: %f %f %f", position);
///     block.Save(L"addnode:", node);
///     return 1;
#pragma once

#include "core/file_io_object.h"
#include "core/file_saver.h"
#include "core/math_color.h"
#include "core/math_vector3.h"
#include "core/sys_string.h"

#include <array>
#include <tuple>

/// Writes one line at level 0, by the short way when all its values are numbers of one kind.
template <class... TValues> void WriteValues(CFile_Saver* saver, const SLineFormat& format, const TValues&... values)
{
    constexpr std::size_t count = sizeof...(TValues);
    constexpr bool arefloats = count != 0 && (std::is_same_v<TValues, float> && ...);
    constexpr bool areintegers = count != 0 && (std::is_same_v<TValues, std::int32_t> && ...);
    if constexpr (arefloats || areintegers)
        if (format.numbers == count && format.conversion == (arefloats ? L'f' : L'd'))
        {
            saver->WriteNumbers(format, std::array{values...}.data());
            return;
        }
    saver->Write(0, format.text, values...);
}

/// Writes one line at level 0; each argument is spread into what its format expects: a vector and a
/// colour into three numbers, a string as its text.
template <class... TArguments>
void WriteLine(CFile_Saver* saver, const SLineFormat& format, const TArguments&... arguments)
{
    struct SSpread
    {
        static std::tuple<float> Spread(float value)
        {
            return {value};
        }
        static std::tuple<std::int32_t> Spread(std::int32_t value)
        {
            return {value};
        }
        static std::tuple<std::uint32_t> Spread(std::uint32_t value)
        {
            return {value};
        }
        static std::tuple<const wchar_t*> Spread(const wchar_t* text)
        {
            return {text};
        }
        static std::tuple<const wchar_t*> Spread(const CSys_String& text)
        {
            return {text.Get()};
        }
        static std::tuple<float, float, float> Spread(const CMath_Vector3& vector)
        {
            return {vector.x, vector.y, vector.z};
        }
        static std::tuple<float, float, float> Spread(const CMath_Color& color)
        {
            return {color.r, color.g, color.b};
        }
    };
    std::apply([&](const auto&... values) { WriteValues(saver, format, values...); },
               std::tuple_cat(SSpread::Spread(arguments)...));
}

/// Opens a block on construction and closes it on destruction.
class CBlockWriter
{
  public:
    explicit CBlockWriter(CFile_Saver* newsaver) : saver(newsaver), isopen(newsaver->StartBlock() == 1)
    {
    }

    CBlockWriter(const CBlockWriter&) = delete;
    CBlockWriter& operator=(const CBlockWriter&) = delete;

    ~CBlockWriter()
    {
        if (isopen)
            saver->EndBlock();
    }

    /// False when the saver could not open the block; nothing must be written then.
    bool IsOpen() const
    {
        return isopen;
    }

    template <class... TArguments> void Write(const SLineFormat& format, const TArguments&... arguments)
    {
        WriteLine(saver, format, arguments...);
    }

    /// One line for each element of a list.
    template <class TList> void WriteEach(const SLineFormat& format, const TList& list)
    {
        for (const auto& element : list)
            WriteLine(saver, format, element);
    }

    /// A line, then the record behind it.
    void Save(const wchar_t* heading, CFile_IOObject& record)
    {
        saver->Write(0, heading);
        record.Save(saver);
    }

    /// The same for each record of a list, held by value or by pointer.
    template <class TList> void SaveEach(const wchar_t* heading, TList& list)
    {
        for (unsigned long i = 0; i < list.GetNumItems(); ++i)
            Save(heading, *list[i]);
    }

  private:
    CFile_Saver* saver;
    bool isopen;
};
