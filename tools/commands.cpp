#include "tools/commands.h"

#include "tools/input.h"
#include "tools/output.h"

#include <sstream>

void Convert(const SCommandOptions& options)
{
    CInput input(options.input, options.format);
    COutput output(options.output);
    CFile_Saver saver;
    saver.OpenSink(COutput::Sink, &output);
    const bool issaved = input.GetAsset().Save(saver) == 1;
    if (saver.Close() != 1 || !issaved)
        output.Commit(); // says why when it was the output
    else
        return output.Commit();
    throw CToolError("cannot save " + input.GetName() + ": not enough memory");
}

void Inspect(const SCommandOptions& options)
{
    CInput input(options.input, options.format);
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
