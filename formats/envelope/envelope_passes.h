/// What is done to an envelope document once its text is read.
#pragma once

#include "formats/envelope/envelope.h"

/// Gives excluded vertices the weight 0.0001 for the bone whose list names them, in place; says so on standard
/// output. A list entry that names no vertex is left alone.
void ApplyExclusions(CFileFormat_Envelope& document);

/// Removes the bones that no weight in use names, and closes the gaps in the ids of bones and weights.
///
/// The result is that of taking out unnamed ids one by one, lowest first, up to the greatest boneID: the first
/// bone of that id goes, whatever is above the id is lowered by one. So of several bones that share an unnamed
/// id the later ones stay, with the number that then is theirs. Weights above every boneID keep their distance
/// to it. Costs time n log n whatever the ids are. Without memory the document stays as it is.
void PruneBones(CFileFormat_Envelope& document);
