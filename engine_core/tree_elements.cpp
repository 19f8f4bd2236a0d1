/// How the elements of trees and graphs load and save themselves: one line a field, texts of any content
/// between quotes, floats with as many digits as they need.
#include "core/audio_sound.h"
#include "core/effects_system.h"
#include "core/g_renderer.h"
#include "core/gui_tree_data.h"
#include "core/sys_data_node.h"
#include "core/sys_text.h"
#include "engine_core/text_field.h"

Result CSys_Text::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField textfield(L"text:");
    CTextField languagefield(L"language:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        textfield.Read(block);
        languagefield.Read(block);
    }
    textfield.Finish(text);
    languagefield.Finish(language);
    return 1;
}

Result CSys_Text::Save(CFile_Saver* saver)
{
    const CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"text:", text.Get());
    SaveTextField(saver, L"language:", language.Get());
    return 1;
}

Result CSys_DataNode::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField namefield(L"name:");
    CTextField valuefield(L"value:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        namefield.Read(block);
        block.Read(L"kind:", kind);
        valuefield.Read(block);
    }
    namefield.Finish(name);
    valuefield.Finish(value);
    return 1;
}

Result CSys_DataNode::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"name:", name.Get());
    block.Write(L"kind: %u", kind);
    SaveTextField(saver, L"value:", value.Get());
    return 1;
}

Result SGui_TreeData::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField textfield(L"text:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        textfield.Read(block);
        block.Read(L"icon:", icon);
        block.Read(L"expanded:", expanded);
    }
    textfield.Finish(text);
    return 1;
}

Result SGui_TreeData::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"text:", text.Get());
    block.Write(L"icon: %u", icon);
    block.Write(L"expanded: %u", expanded);
    return 1;
}

Result CAudio_Sound::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField filefield(L"file:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        filefield.Read(block);
        block.Read(L"volume:", volume);
        block.Read(L"pitch:", pitch);
        block.Read(L"range:", range);
        block.Read(L"looped:", looped);
    }
    filefield.Finish(file);
    return 1;
}

Result CAudio_Sound::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"file:", file.Get());
    block.Write(L"volume: %.9g", volume);
    block.Write(L"pitch: %.9g", pitch);
    block.Write(L"range: %.9g", range);
    block.Write(L"looped: %u", looped);
    return 1;
}

Result CG_Renderer::CControlLayout::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField lookfield(L"look:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        lookfield.Read(block);
        block.Read(L"left:", left);
        block.Read(L"top:", top);
        block.Read(L"width:", width);
        block.Read(L"height:", height);
    }
    lookfield.Finish(look);
    return 1;
}

Result CG_Renderer::CControlLayout::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"look:", look.Get());
    block.Write(L"left: %.9g", left);
    block.Write(L"top: %.9g", top);
    block.Write(L"width: %.9g", width);
    block.Write(L"height: %.9g", height);
    return 1;
}

Result CEffects_System::CEffects_Flare::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField texturefield(L"texture:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        texturefield.Read(block);
        block.Read(L"color:", color);
        block.Read(L"alpha:", color.a);
        block.Read(L"size:", size);
        block.Read(L"position:", position);
    }
    texturefield.Finish(texture);
    return 1;
}

Result CEffects_System::CEffects_Flare::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"texture:", texture.Get());
    block.Write(L"color: %.9g %.9g %.9g", color);
    block.Write(L"alpha: %.9g", color.a);
    block.Write(L"size: %.9g", size);
    block.Write(L"position: %.9g", position);
    return 1;
}

Result CEffects_System::CEffects_LibraryEffect::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CTextField modelfield(L"model:");
    CTextField soundfield(L"sound:");
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        modelfield.Read(block);
        soundfield.Read(block);
        block.Read(L"lifetime:", lifetime);
        block.Read(L"count:", count);
    }
    modelfield.Finish(model);
    soundfield.Finish(sound);
    return 1;
}

Result CEffects_System::CEffects_LibraryEffect::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"model:", model.Get());
    SaveTextField(saver, L"sound:", sound.Get());
    block.Write(L"lifetime: %.9g", lifetime);
    block.Write(L"count: %u", count);
    return 1;
}
