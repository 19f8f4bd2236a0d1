/// JSON for `inspect --json` and `model --json`: one stream of values, each type written one way.
///
/// A record type is made known by one function beside its adapter,
///     void WriteFields(CJsonWriter& json, const CRecord& record);
/// which calls json.Field for each field in declaration order.
#pragma once

#include "core/core_templates.h"
#include "core/math_color.h"
#include "core/math_matrix4x4.h"
#include "core/math_vector3.h"
#include "core/sys_string.h"
#include "tools/output.h"
#include "tools/utf8.h"

#include <rapidjson/writer.h>

#include <charconv>
#include <cmath>
#include <string>

/// Writes to a COutput. A vector is [x, y, z], a colour [r, g, b, a], a matrix four rows, a list an array, a
/// text a string, a record an object. Floats have the fewest digits that read back to the same float; what
/// JSON has no number for is "nan", "inf" or "-inf".
class CJsonWriter
{
  public:
    explicit CJsonWriter(COutput& output) : stream(output), writer(stream)
    {
    }

    void StartObject()
    {
        writer.StartObject();
    }

    void EndObject()
    {
        writer.EndObject();
    }

    void StartArray()
    {
        writer.StartArray();
    }

    void EndArray()
    {
        writer.EndArray();
    }

    void Key(const char* name)
    {
        writer.Key(name);
    }

    template <class T> void Field(const char* name, const T& value)
    {
        Key(name);
        Value(value);
    }

    /// A field that is an array of whatever values the arguments are.
    template <class... TValues> void ArrayField(const char* name, const TValues&... values)
    {
        Key(name);
        Array(values...);
    }

    template <class... TValues> void Array(const TValues&... values)
    {
        StartArray();
        (Value(values), ...);
        EndArray();
    }

    void Value(std::int32_t value)
    {
        writer.Int(value);
    }

    void Value(std::uint32_t value)
    {
        writer.Uint(value);
    }

    void Value(float value)
    {
        if (!std::isfinite(value))
        {
            writer.String(std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf");
            return;
        }
        char digits[48];
        const char* const end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
        writer.RawValue(digits, static_cast<std::size_t>(end - digits), rapidjson::kNumberType);
    }

    void Value(const char* text)
    {
        writer.String(text);
    }

    void Value(const CSys_String& text)
    {
        const std::string utf8 = ToUtf8(text.Get());
        writer.String(utf8.c_str(), static_cast<rapidjson::SizeType>(utf8.size()));
    }

    void Value(const CMath_Vector3& vector)
    {
        Array(vector.x, vector.y, vector.z);
    }

    void Value(const CMath_Color& color)
    {
        Array(color.r, color.g, color.b, color.a);
    }

    void Value(const CMath_Matrix4x4& matrix)
    {
        StartArray();
        for (const auto& row : matrix.m)
            Array(row[0], row[1], row[2], row[3]);
        EndArray();
    }

    template <class T> void Value(const TArray<T>& list)
    {
        StartArray();
        for (const T& element : list)
            Value(element);
        EndArray();
    }

    template <class T, unsigned Block> void Value(const TPArray<T, Block>& list)
    {
        StartArray();
        for (const T* element : list)
            Value(*element);
        EndArray();
    }

    template <class TRecord>
    requires requires(CJsonWriter& json, const TRecord& record)
    {
        WriteFields(json, record);
    }
    void Value(const TRecord& record)
    {
        StartObject();
        WriteFields(*this, record);
        EndObject();
    }

  private:
    /// What the JSON library writes characters to.
    struct SStream
    {
        using Ch = char;

        explicit SStream(COutput& newoutput) : output(newoutput)
        {
        }

        void Put(char character)
        {
            output.Write(&character, 1);
        }

        void Flush()
        {
        }

        COutput& output;
    };

    SStream stream;
    rapidjson::Writer<SStream> writer;
};
