/// The records of an ASE scene as JSON: each writes its fields in declaration order, saved or not.
#pragma once

#include "formats/ase/ase.h"
#include "tools/json_writer.h"

void WriteFields(CJsonWriter& json, const CFileFormat_Ase& document);
