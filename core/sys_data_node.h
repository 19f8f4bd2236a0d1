/// What a node of a graph holds.
#pragma once

#include "core/sys_string.h"

/// A named value, of which the graph's owner knows the meaning.
/// Load: replaces the texts, and the kind where there is one, with what Save wrote; returns 1.
class ENGINE_CORE_API CSys_DataNode : public CFile_IOObject
{
  public:
    CSys_String name;
    std::uint32_t kind = 0;
    CSys_String value;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
