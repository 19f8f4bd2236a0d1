/// Documents told as texts to compare.
#pragma once

#include "tests/hostile/ase_fields.h"
#include "tests/hostile/fields.h"
#include "tests/support/documents.h"

/// Whether the document is worth no more than being loaded: a material count makes any number of materials out of
/// nothing, up to the reader's limit, and each further step with those takes seconds.
template <class TDocument> bool IsPadded(const TDocument& document)
{
    if constexpr (std::is_same_v<TDocument, CFileFormat_Ase>)
        return document.Materials.NumItems > 1000;
    return false;
}

/// What Save writes and, where it is known, every field.
template <class TDocument> std::string Describe(TDocument& document)
{
    CDescriber describer;
    if constexpr (requires { Visit(describer, document); })
        Visit(describer, document);
    return SaveText(document) + describer.text;
}
