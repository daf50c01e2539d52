#include "layer/CZoHoverGrid.h"

#include "object/CZoMapObjectCore.h"

#include <QGraphicsItem>
#include <algorithm>
#include <cmath>

namespace
{
// Scene units per cell side: a dot and its name fit in one to four cells at
// the usual view scales.
constexpr double kCell = 128.0;
// An item over more cells than this (a long line, a country) is not spread
// over the cells but tried by every query.
constexpr qint64 kMaxCells = 64;
// Far enough out that no real item reaches it; keeps the cell numbers in range.
constexpr double kMaxCellIndex = 1.0e9;

qint32 CellOf(double coordinate)
{
    const double cell = std::floor(coordinate / kCell);
    return static_cast<qint32>(std::max(-kMaxCellIndex, std::min(kMaxCellIndex, cell)));
}

qint64 CellKey(qint32 x, qint32 y)
{
    return static_cast<qint64>((static_cast<quint64>(static_cast<quint32>(y)) << 32) | static_cast<quint32>(x));
}

void Erase(std::vector<CZoMapObjectCore*>& list, const CZoMapObjectCore* core)
{
    const auto found = std::find(list.begin(), list.end(), core);
    if (found == list.end())
        return;
    *found = list.back();
    list.pop_back();
}
} // namespace

bool CZoHoverGrid::Hoverable(const CZoMapObjectCore& core)
{
    const QGraphicsItem* item = core.GetQtItem();
    return item && core.IsInteractive() && core.IsInScene() &&
           !(item->flags() & QGraphicsItem::ItemIgnoresTransformations);
}

void CZoHoverGrid::Invalidate()
{
    m_built = false;
    ++m_generation;
    if (m_generation == 0)
        m_generation = 1;
    m_cells.clear();
    m_large.clear();
    m_dirty.clear();
}

void CZoHoverGrid::Build()
{
    Invalidate();
    m_built = true;
    // Place may untrack what is no longer hoverable: walk a copy.
    const std::vector<CZoMapObjectCore*> tracked = m_tracked;
    for (CZoMapObjectCore* core : tracked)
        Place(*core);
}

bool CZoHoverGrid::Track(CZoMapObjectCore& core)
{
    SZoGridPlace& place = core.GridPlace();
    if (!Hoverable(core))
    {
        Untrack(core);
        return false;
    }
    if (place.tracked < 0)
    {
        place.tracked = static_cast<qint32>(m_tracked.size());
        m_tracked.push_back(&core);
    }
    return true;
}

void CZoHoverGrid::Untrack(CZoMapObjectCore& core)
{
    SZoGridPlace& place = core.GridPlace();
    if (place.tracked < 0)
        return;
    CZoMapObjectCore* last = m_tracked.back();
    m_tracked[place.tracked] = last;
    last->GridPlace().tracked = place.tracked;
    m_tracked.pop_back();
    place.tracked = -1;
}

template <class F>
void CZoHoverGrid::ForCells(const SZoGridPlace& place, F f)
{
    for (qint32 y = place.y0; y <= place.y1; ++y)
        for (qint32 x = place.x0; x <= place.x1; ++x)
            f(m_cells[CellKey(x, y)]);
}

void CZoHoverGrid::Place(CZoMapObjectCore& core)
{
    SZoGridPlace& place = core.GridPlace();
    const bool placed = place.generation == m_generation;
    if (!Track(core))
    {
        if (placed)
            Forget(core);
        return;
    }
    const QRectF bounds = core.GetQtItem()->sceneBoundingRect();
    if (!std::isfinite(bounds.left()) || !std::isfinite(bounds.top()) || !std::isfinite(bounds.right()) ||
        !std::isfinite(bounds.bottom()))
    {
        if (placed)
            Forget(core);
        return;
    }
    SZoGridPlace next;
    next.x0 = CellOf(bounds.left());
    next.y0 = CellOf(bounds.top());
    next.x1 = CellOf(bounds.right());
    next.y1 = CellOf(bounds.bottom());
    next.large = (qint64(next.x1) - next.x0 + 1) * (qint64(next.y1) - next.y0 + 1) > kMaxCells;
    next.generation = m_generation;
    next.tracked = place.tracked;
    next.dirty = place.dirty && placed;
    if (placed && next.x0 == place.x0 && next.y0 == place.y0 && next.x1 == place.x1 && next.y1 == place.y1)
        return;
    if (placed)
        Unplace(core);
    place = next;
    if (place.large)
        m_large.push_back(&core);
    else
        ForCells(place, [&core](std::vector<CZoMapObjectCore*>& cell) { cell.push_back(&core); });
}

void CZoHoverGrid::Unplace(CZoMapObjectCore& core)
{
    const SZoGridPlace& place = core.GridPlace();
    if (place.large)
    {
        Erase(m_large, &core);
        return;
    }
    for (qint32 y = place.y0; y <= place.y1; ++y)
    {
        for (qint32 x = place.x0; x <= place.x1; ++x)
        {
            const auto cell = m_cells.find(CellKey(x, y));
            if (cell == m_cells.end())
                continue;
            Erase(cell->second, &core);
            if (cell->second.empty())
                m_cells.erase(cell);
        }
    }
}

void CZoHoverGrid::NoteMoved(CZoMapObjectCore& core)
{
    if (!m_built)
        Track(core);
    // A shape change under way is placed by the next query, when it is done.
    else if (!(core.GridPlace().dirty && core.GridPlace().generation == m_generation))
        Place(core);
}

void CZoHoverGrid::NoteShapeChanging(CZoMapObjectCore& core)
{
    if (!m_built)
        return;
    SZoGridPlace& place = core.GridPlace();
    if (place.generation == m_generation && place.dirty)
        return;
    if (place.generation != m_generation)
    {
        // Not placed yet: a place of no cells, to be filled by the next query.
        const qint32 tracked = place.tracked;
        place = SZoGridPlace();
        place.generation = m_generation;
        place.tracked = tracked;
    }
    place.dirty = true;
    m_dirty.push_back(&core);
}

void CZoHoverGrid::Forget(CZoMapObjectCore& core)
{
    Untrack(core);
    SZoGridPlace& place = core.GridPlace();
    if (place.generation != m_generation)
        return;
    Unplace(core);
    if (place.dirty)
        Erase(m_dirty, &core);
    place = SZoGridPlace();
}

void CZoHoverGrid::FlushDirty()
{
    const std::vector<CZoMapObjectCore*> dirty = std::move(m_dirty);
    m_dirty.clear();
    for (CZoMapObjectCore* core : dirty)
    {
        core->GridPlace().dirty = false;
        Place(*core);
    }
}

void CZoHoverGrid::Collect(const QRectF& sceneRect, std::vector<CZoMapObjectCore*>* out)
{
    if (!out || !m_built)
        return;
    FlushDirty();
    const size_t first = out->size();
    out->insert(out->end(), m_large.begin(), m_large.end());
    const qint32 x0 = CellOf(sceneRect.left());
    const qint32 x1 = CellOf(sceneRect.right());
    const qint32 y0 = CellOf(sceneRect.top());
    const qint32 y1 = CellOf(sceneRect.bottom());
    if ((qint64(x1) - x0 + 1) * (qint64(y1) - y0 + 1) > kMaxCells)
        return;
    for (qint32 y = y0; y <= y1; ++y)
    {
        for (qint32 x = x0; x <= x1; ++x)
        {
            const auto cell = m_cells.find(CellKey(x, y));
            if (cell != m_cells.end())
                out->insert(out->end(), cell->second.begin(), cell->second.end());
        }
    }
    std::sort(out->begin() + first, out->end());
    out->erase(std::unique(out->begin() + first, out->end()), out->end());
}
