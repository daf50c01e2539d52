#pragma once

class CZoGraphicsModule;
class IZoGraphicsMapLayer;
class IZoGraphicsModule;
class IZoMapModule;
class QString;
class QWidget;

// Puts one of each anchored shape over Asia: range rings around Beijing, a
// pie chart over Kazakhstan, an arc, a chord, an ellipse, rectangles with and
// without a picture, a picture tile in the Forbidden City (at level 21), and a
// bubble pointing at Tokyo. widgetOwner owns the bubble's widget.
void AddAnchoredShapesDemo(CZoGraphicsModule& graphics, IZoMapModule& map, QWidget* widgetOwner);

// The parts of that demo, one kind each, onto layer.
// Dashed rings of 500, 1,000 and 2,000 km around Beijing, named.
void AddRangeRings(CZoGraphicsModule& graphics, IZoMapModule& map, IZoGraphicsMapLayer* layer);
// A pie chart of three slices over Kazakhstan, an arc over India and a chord
// over Arabia.
void AddBows(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer);
// An ellipse over the Caspian Sea.
void AddEllipse(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer);
// A plain rectangle over Korea, one showing a picture over Indochina and the
// picture tile in the Forbidden City.
void AddRectangles(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer);
// A callout with a label and a button hanging from Tokyo.
void AddBubble(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer, QWidget* widgetOwner);

// The capitals as interactive dots with their Chinese names, on a layer of
// their own that shows from level 2 (names from level 3) and declutters the
// names; returns how many dots were made.
int AddCapitalDots(IZoGraphicsModule& graphics, const QString& dataDir);
