#pragma once

#include <QString>

class IZoGraphicsModule;

// The point-list shapes on the map: the Natural Earth countries as
// translucent multi-polygons, the great-circle route from Beijing to New York
// as a polyline with an arrow, and the capitals as one multi-dot at the
// levels where the interactive capital dots are not yet shown.
void AddPointListDemo(IZoGraphicsModule& graphics, const QString& dataDir);

// The parts of that demo, one kind each, every one on a layer of its own.
void AddCountries(IZoGraphicsModule& graphics, const QString& dataDir);
void AddRoute(IZoGraphicsModule& graphics);
// Shown out to level 1 only.
void AddCapitalsMultiDot(IZoGraphicsModule& graphics, const QString& dataDir);
