#pragma once

class CZoGraphicsModule;
class IZoLayerCanvasMapObject;
class QDateTime;
class QString;
class QWidget;

// Puts the content objects over Europe and the North Atlantic: pins with
// icons and Chinese names on the European capitals, a text to edit in place
// (double click it), a compass rose, a small embedded form, and the day and
// night shading of the whole map, recomputed by a worker thread every few
// seconds. window is the viewer's main window: it owns the form and its map
// view reports the double clicks.
void AddContentDemo(CZoGraphicsModule& graphics, const QString& dataDir, QWidget* window);

// The parts of that demo, one kind each, every one on a layer of its own.
// Pins on the European capitals, shown from level 3.
void AddCapitalPins(CZoGraphicsModule& graphics, const QString& dataDir);
// A boxed note off Nova Scotia that a double click in window's map view
// turns editable.
void AddEditableText(CZoGraphicsModule& graphics, QWidget* window);
// The compass rose picture, turned a little, west of Ireland.
void AddCompassRose(CZoGraphicsModule& graphics, const QString& dataDir);
// A small form over the Atlantic, deleted with window.
void AddForm(CZoGraphicsModule& graphics, QWidget* window);
// The night side of the world at time, as a canvas over the whole map,
// below everything else.
IZoLayerCanvasMapObject* AddDayNightCanvas(CZoGraphicsModule& graphics, const QDateTime& time);
