// HairLines: the guides of hair objects as line strips in library axes, one strip per guide, for
// the mesh writers.
#pragma once

#include "export/LineStrips.h"

class BaseDocument;
class HairGuides;
struct Matrix;

namespace HairLines {

// The guides, each point carried by the matrix (the hair object's global matrix) first.
void append(const HairGuides& guides, const Matrix& placement, mv::LineStrips& lines);
// The guides of every hair object of the document, the objects walked top down.
mv::LineStrips ofDocument(BaseDocument* doc);

}  // namespace HairLines
