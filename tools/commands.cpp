#include "tools/commands.h"

#include "tools/input.h"
#include "tools/model_json.h"
#include "tools/output.h"

#include <optional>
#include <sstream>

namespace
{
/// Writes the text that `save` gives to a saver.
template <class TSave> void SaveText(const CInput& input, const std::filesystem::path& path, TSave save)
{
    COutput output(path);
    CFile_Saver saver;
    saver.OpenSink(COutput::Sink, &output);
    const bool issaved = save(saver) == 1;
    if (saver.Close() != 1 || !issaved)
        output.Commit(); // says why when it was the output
    else
        return output.Commit();
    throw CToolError("cannot save " + input.GetName() + ": not enough memory");
}
} // namespace

void Convert(const SCommandOptions& options)
{
    CInput input(options.input, options.format);
    SaveText(input, options.output, [&](CFile_Saver& saver) { return input.GetAsset().Save(saver); });
}

void BuildModel(const SCommandOptions& options)
{
    CInput input(options.input, options.format);
    CGraphics_Model model;
    if (input.GetAsset().BuildModel(model, options.scale) != 1)
        throw CToolError("cannot build a model from " + input.GetName() + ": it is read as " +
                         std::string(input.GetFormat().description) + ", and only an ASE scene makes a model");
    if (!options.isjson)
        return SaveText(input, options.output, [&](CFile_Saver& saver) { return model.Save(&saver); });
    COutput output(options.output);
    CJsonWriter(output).Value(model);
    output.Write("\n");
    output.Commit();
}

void Inspect(const SCommandOptions& options)
{
    std::optional<CQuietStandardOutput> quiet; // with JSON, what a reader prints must not stand beside it
    if (options.isjson)
        quiet.emplace();
    CInput input(options.input, options.format);
    quiet.reset();
    COutput output({});
    if (options.isjson)
    {
        CJsonWriter json(output);
        json.StartObject();
        json.Field("format", input.GetFormat().name.data());
        json.Key("document");
        input.GetAsset().WriteJson(json);
        json.EndObject();
        output.Write("\n");
    }
    else
    {
        std::ostringstream text;
        text << input.GetName() << ": " << input.GetFormat().description << ", " << input.GetSize() << " bytes\n";
        input.GetAsset().Describe(text);
        output.Write(text.str());
    }
    output.Commit();
}
