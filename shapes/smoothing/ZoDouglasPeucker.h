#pragma once

#include <ZoGraphics/ZoCoreTypes.h>

#include <vector>

namespace ZoGraphicsInternalNS
{
// Douglas-Peucker over single-precision copies of the points (z included),
// measuring each point against the infinite line through its span's ends.
// Appends the kept points, in input order and rounded to single precision, to
// kept, which must be a different vector from in.
void DouglasPeuckerReduce(std::vector<CVector3D>& kept, const std::vector<CVector3D>& in, double tolerance);
} // namespace ZoGraphicsInternalNS
