#pragma once

class CZoGraphicsModule;
class IZoMapModule;
class QWidget;

// Puts one of each anchored shape over Asia: range rings around Beijing, a
// pie chart over Kazakhstan, an arc, a chord, an ellipse, rectangles with and
// without a picture, a picture tile in the Forbidden City (at level 21), and a
// bubble pointing at Tokyo. widgetOwner owns the bubble's widget.
void AddAnchoredShapesDemo(CZoGraphicsModule& graphics, IZoMapModule& map, QWidget* widgetOwner);
