// What a call of a demosaicing function has besides its images.
#pragma once

#include "harness/guarded_image.h"

namespace harness {

inline bool demosaics(const tolk::Function& f) { return f.src.space == "CFA"; }

// Grid and gains that turn with `turn`; a rectangle, which for a variant of 0 is the whole mosaic.
void setDemosaicing(uint32_t variant, uint32_t turn, tolk::Call& call);

// The pixels that a call may write, in the mosaic's coordinates, or one where there are none.
TolkRectL writtenPixels(const tolk::Function& f, const tolk::Call& call);

// Moves the destination's pointer from the first of `writtenPixels` to where the function wants it.
void addressDestination(const tolk::Function& f, tolk::Call& call);

// Thirty rows of scratch memory that end at a guard page, or begin behind one and go upward.
void layOutRows(const tolk::Function& f, uint32_t turn, const tolk::Call& call, Image& scratch);
void addressRows(const tolk::Function& f, uint32_t turn, const Image& scratch, tolk::Call& call);

}  // namespace harness
