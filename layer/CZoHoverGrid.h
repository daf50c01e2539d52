#pragma once

#include <QRectF>
#include <QtGlobal>

#include <unordered_map>
#include <vector>

class CZoMapObjectCore;

// Where an object's item lies in its layer's hover grid; kept by the object.
struct SZoGridPlace
{
    qint32 x0 = 0;
    qint32 y0 = 0;
    qint32 x1 = -1;
    qint32 y1 = -1;
    quint32 generation = 0; // the grid's generation the place belongs to; 0: none
    qint32 tracked = -1;    // index among the grid's hoverable objects; -1: not one
    bool dirty = false;     // its geometry changed after it was placed
    bool large = false;     // too many cells: kept in the grid's list of large items
};

// The interactive items of one layer by the square cells of scene space their
// scene bounding rectangles touch, so that the item under the pointer is found
// without asking Qt, which without an index scans every item of the scene.
//
// The grid knows its hoverable objects at all times, but places them in cells
// only at the first query, and a zoom drops the cells (Invalidate): hosts that
// never hover pay nothing but a flag test per move. Once built, a moved item
// is placed again at once (usually in the cells it was in); an item whose
// shape changes is marked and placed again by the next query.
class CZoHoverGrid
{
public:
    CZoHoverGrid() = default;
    CZoHoverGrid(const CZoHoverGrid&) = delete;
    CZoHoverGrid& operator=(const CZoHoverGrid&) = delete;

    bool IsBuilt() const { return m_built; }
    // Forgets every place; the next query builds the grid again.
    void Invalidate();
    // Places every object that can be hovered.
    void Build();

    // The object's item moved or turned, or it may have become hoverable or
    // stopped being so: placed again now if the grid is built.
    void NoteMoved(CZoMapObjectCore& core);
    // The object's item is about to change its shape: placed again by the
    // next query.
    void NoteShapeChanging(CZoMapObjectCore& core);
    // The object leaves the grid (it stops being hoverable or goes away).
    void Forget(CZoMapObjectCore& core);

    // Appends the objects whose items may meet sceneRect, each once.
    void Collect(const QRectF& sceneRect, std::vector<CZoMapObjectCore*>* out);

    // An item of the library that the grid can hold: in Qt's scene
    // coordinates (not sized per view) and interactive, in a scene.
    static bool Hoverable(const CZoMapObjectCore& core);

private:
    // Keeps the list of hoverable objects; false when core is not one.
    bool Track(CZoMapObjectCore& core);
    void Untrack(CZoMapObjectCore& core);
    void Place(CZoMapObjectCore& core);
    void Unplace(CZoMapObjectCore& core);
    void FlushDirty();
    template <class F>
    void ForCells(const SZoGridPlace& place, F f);

    bool m_built = false;
    quint32 m_generation = 1;
    std::vector<CZoMapObjectCore*> m_tracked;
    std::unordered_map<qint64, std::vector<CZoMapObjectCore*>> m_cells;
    std::vector<CZoMapObjectCore*> m_large;
    std::vector<CZoMapObjectCore*> m_dirty;
};

// A layer that keeps a hover grid for its objects.
class IZoHoverGridOwner
{
public:
    virtual CZoHoverGrid& HoverGrid() = 0;

protected:
    ~IZoHoverGridOwner() = default;
};
