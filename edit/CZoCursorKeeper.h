#pragma once

#include <QCursor>

#include <string>

class IZoMapView;

// The view cursor an edit gadget replaces while the pointer is over one of
// its handles, kept so that leaving the handle puts the host's cursor back.
class CZoCursorKeeper
{
public:
    CZoCursorKeeper() = default;
    Q_DISABLE_COPY(CZoCursorKeeper)

    // Remembers the viewport's cursor unless one is kept already.
    void Save(IZoMapView* view);
    // A compiled-in picture (a GB18030 resource path); a hot spot of -1, -1
    // is the picture's centre.
    void Set(IZoMapView* view, const std::string& resource, int hotX = -1, int hotY = -1);
    void Set(IZoMapView* view, const QCursor& cursor);
    // The cursor of a compiled-in picture, hot spot in the middle.
    static QCursor Picture(const std::string& resource);
    // Puts the kept cursor back, a default one if nothing was saved.
    void Restore(IZoMapView* view);
    bool IsSaved() const { return m_saved; }

private:
    QCursor m_cursor;
    bool m_saved = false;
};

// The cursor pictures of the gadgets.
namespace ZoEditCursor
{
constexpr const char* kMovePoint = ":/Cursor/cursor_move_point.png";
constexpr const char* kDragPoint = ":/Cursor/dragPoint.png";
constexpr const char* kRotate = ":/Cursor/rotate.png";
constexpr const char* kInsertPoint = ":/Cursor/cursor2.png";
} // namespace ZoEditCursor
