#pragma once

#include "object/ZoLogText.h"

#include <ZoGraphics/ZoCoreTypes.h>

#include <QPointF>
#include <QPolygonF>
#include <cstddef>
#include <vector>

// One warning of an index check: "[cls::method] reason" followed by the index.
// The point-list kinds carry texts that name other classes and methods on
// purpose; hosts match on them, so each kind states its texts as data.
struct SZoIndexText
{
    const char* cls;
    const char* method;
    const char* reason;
};

namespace ZoPointList
{
using Line = std::vector<CVector3D>;

// 0 <= index < count, or 0 <= index <= count when the end is allowed too.
inline bool IndexValid(int index, std::size_t count, bool endAllowed = false)
{
    return index >= 0 && (static_cast<std::size_t>(index) < count || (endAllowed && static_cast<std::size_t>(index) == count));
}

// Logs the text with the index appended when the index fails the check.
bool CheckIndex(const SZoIndexText& text, int index, std::size_t count, bool endAllowed = false);
void LogIndexFault(const SZoIndexText& text, int index);

// Coordinates equal within 1e-12 absolute at zero, 1e-12 relative elsewhere.
bool SameCoordinate(double a, double b);
bool SamePoint(const QPointF& a, const QPointF& b);

bool IsFinite(const CVector3D& point);

// Two corners per point, (x, y, -1) and (x, y, 1): the z of points is ignored.
void ExtendExtent(CAABB& extent, const CVector3D& point);
CAABB ExtentOf(const std::vector<Line>& lines);
} // namespace ZoPointList
