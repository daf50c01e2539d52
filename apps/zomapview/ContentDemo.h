#pragma once

class CZoGraphicsModule;
class QString;
class QWidget;

// Puts the content objects over Europe and the North Atlantic: pins with
// icons and Chinese names on the European capitals, a text to edit in place
// (double click it), a compass rose, a small embedded form, and the day and
// night shading of the whole map, recomputed by a worker thread every few
// seconds. window is the viewer's main window: it owns the form and its map
// view reports the double clicks.
void AddContentDemo(CZoGraphicsModule& graphics, const QString& dataDir, QWidget* window);
