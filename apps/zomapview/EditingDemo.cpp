#include "EditingDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <QUndoCommand>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
// Drawn above every demo layer, so that handles are never hidden.
constexpr int kEditLayerZ = 1000;

CVector3D Shifted(const CVector3D& p, const CVector3D& by)
{
    return CVector3D(p.x + by.x, p.y + by.y, p.z);
}

double Fraction(double v, double from, double to)
{
    return to == from ? 0.5 : (v - from) / (to - from);
}

// v at the same fraction of [toLow, toHigh] as it lies in [from, to].
double Along(double v, double from, double to, double toLow, double toHigh)
{
    return toLow + Fraction(v, from, to) * (toHigh - toLow);
}

double SizeRatio(double now, double before)
{
    return before == 0.0 ? 1.0 : std::abs(now / before);
}

// Turns p about centre (scene pixels) clockwise on the screen, as Qt turns
// items; p stays as it was when the map cannot convert it.
void TurnOnScreen(const CZoMapModule* map, const QPointF& centre, double degrees, CVector3D* p)
{
    QPointF s;
    if (!map || !map->GeoToScenePoint(p->x, p->y, &s))
        return;
    const double r = degrees * M_PI / 180.0;
    const QPointF d = s - centre;
    const QPointF turned(centre.x() + d.x() * std::cos(r) - d.y() * std::sin(r),
                         centre.y() + d.x() * std::sin(r) + d.y() * std::cos(r));
    double lon = 0.0;
    double lat = 0.0;
    if (map->ScenePointToGeo(turned, &lon, &lat))
        *p = CVector3D(lon, lat, p->z);
}

QAction* AddStepAction(QMenu* menu, const QString& text, const QKeySequence& keys, bool enabled)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(keys);
    action->setEnabled(enabled);
    return action;
}

// One completed gesture: the object's geometry before and after it.
class CShapeCommand : public QUndoCommand
{
public:
    CShapeCommand(CViewerEditor& editor, IZoGraphicsMapObject* object, CViewerEditor::SShape before,
                  CViewerEditor::SShape after, const QString& text)
        : QUndoCommand(text), m_editor(editor), m_object(object), m_before(std::move(before)),
          m_after(std::move(after))
    {
    }
    // The gesture itself did the first redo.
    void redo() override
    {
        if (m_done)
            m_editor.Apply(m_object, m_after);
        m_done = true;
    }
    void undo() override { m_editor.Apply(m_object, m_before); }

private:
    CViewerEditor& m_editor;
    IZoGraphicsMapObject* m_object;
    CViewerEditor::SShape m_before;
    CViewerEditor::SShape m_after;
    bool m_done = false;
};
} // namespace

CViewerEditor::CViewerEditor(CZoGraphicsModule& graphics, CZoMapView& view, QObject* parent)
    : QObject(parent), m_graphics(graphics), m_view(view)
{
    m_layer = graphics.CreateGraphicsLayer("Editing");
    if (m_layer)
        m_layer->SetZValue(kEditLayerZ);
    m_gadgets = {graphics.CreateTranslateEditObject(m_layer), graphics.CreateScaleEditObject(m_layer),
                 graphics.CreateRotationEditObject(m_layer), graphics.CreateKeyPointSetEditObject(m_layer)};
    m_hint = graphics.CreateDotMapObject("SnapHint", m_layer);
    if (m_hint)
    {
        m_hint->SetRadius(9.0);
        m_hint->SetBrushColor(Qt::transparent);
        m_hint->SetPenColor(QColor(0, 170, 0));
        m_hint->SetPenWidth(3.0f);
        m_hint->SetNameVisible(false);
        m_hint->SetVisible(false);
    }
    connect(&view, &CZoMapView::sceneEvent, this, &CViewerEditor::OnSceneEvent);
    connect(&view, &CZoMapView::pointerGeoChanged, this, &CViewerEditor::OnPointer);
    view.installEventFilter(this);
    m_viewport = view.viewport();
    m_viewport->installEventFilter(this);
}

CViewerEditor::~CViewerEditor()
{
    // The window tears the module down before its children go: the gadgets'
    // handles are gone with it, and the module may be too.
    for (IZoGraphicsEditObject* gadget : m_gadgets)
        delete gadget;
}

void CViewerEditor::AddEditable(IZoGraphicsMapObject* object)
{
    if (object)
        m_editables.push_back(object);
}

void CViewerEditor::Select(IZoGraphicsMapObject* object)
{
    if (object == m_selected)
        return;
    // A gesture under way goes back onto the object it began on.
    Cancel();
    m_selected = object;
    AttachGadget();
}

void CViewerEditor::SetTool(ETool tool)
{
    if (tool < 0 || tool >= kToolCount)
        return;
    m_tool = tool;
    if (m_toolActions && m_toolActions->actions().size() == kToolCount)
        m_toolActions->actions()[tool]->setChecked(true);
    AttachGadget();
}

void CViewerEditor::InstallActions(QMainWindow* window)
{
    QToolBar* tools = window->addToolBar(tr("Edit tools"));
    m_toolActions = new QActionGroup(this);
    const QString names[kToolCount] = {tr("Move"), tr("Scale"), tr("Rotate"), tr("Vertices")};
    for (int tool = 0; tool < kToolCount; ++tool)
    {
        QAction* action = tools->addAction(names[tool]);
        action->setCheckable(true);
        action->setChecked(tool == m_tool);
        m_toolActions->addAction(action);
        connect(action, &QAction::triggered, this, [this, tool] { SetTool(static_cast<ETool>(tool)); });
    }
    QMenu* edit = window->menuBar()->addMenu(tr("&Edit"));
    QAction* undo = AddStepAction(edit, tr("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z), m_undo.canUndo());
    QAction* redo = AddStepAction(edit, tr("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), m_undo.canRedo());
    connect(undo, &QAction::triggered, this, &CViewerEditor::Undo);
    connect(redo, &QAction::triggered, this, &CViewerEditor::Redo);
    connect(&m_undo, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(&m_undo, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    connect(&m_undo, &QUndoStack::undoTextChanged, undo,
            [undo](const QString& step) { undo->setText(tr("&Undo %1").arg(step).trimmed()); });
    connect(&m_undo, &QUndoStack::redoTextChanged, redo,
            [redo](const QString& step) { redo->setText(tr("&Redo %1").arg(step).trimmed()); });
}

void CViewerEditor::Undo()
{
    if (m_gesture)
        AttachGadget();
    m_undo.undo();
}

void CViewerEditor::Redo()
{
    if (m_gesture)
        AttachGadget();
    m_undo.redo();
}

void CViewerEditor::OnSceneEvent(const QString& name, const QVariant& value)
{
    if (name != QString::fromStdString(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS))
        return;
    const QVariantList ids = value.toList();
    m_pressedId = ids.isEmpty() ? -1 : ids.first().toInt();
    // A handle's press is its gadget's, whatever editable object lies under it.
    if (IsHandle(m_pressedId))
        return;
    for (const QVariant& id : ids)
    {
        for (IZoGraphicsMapObject* object : m_editables)
        {
            if (object->GetObjectID() == id.toInt())
            {
                Select(object);
                return;
            }
        }
    }
}

bool CViewerEditor::IsHandle(int objectId) const
{
    return std::any_of(m_gadgets.begin(), m_gadgets.end(), [objectId](const IZoGraphicsEditObject* gadget) {
        return gadget && gadget->IsEditObjectHandle(objectId);
    });
}

int CViewerEditor::PressedSegment() const
{
    auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected);
    auto* handle = dynamic_cast<IZoDotMapObject*>(m_graphics.LookupGraphicObject(m_pressedId));
    const IZoGraphicsEditObject* vertices = m_gadgets[kVertices];
    if (!line || !handle || !vertices || !vertices->IsEditObjectHandle(m_pressedId))
        return -1;
    const std::vector<CVector3D> points = line->GetData();
    const CVector3D at = handle->GetPosition();
    const int count = static_cast<int>(points.size());
    if (std::find(points.begin(), points.end(), at) != points.end())
        return -1; // a vertex's own handle
    // Midpoint handles sit halfway along their segments.
    const int segments = line->IsClosed() && count >= 3 ? count : count - 1;
    int nearest = -1;
    double best = std::numeric_limits<double>::infinity();
    for (int i = 0; i < segments; ++i)
    {
        const CVector3D& a = points[i];
        const CVector3D& b = points[(i + 1) % count];
        const double distance = std::hypot((a.x + b.x) * 0.5 - at.x, (a.y + b.y) * 0.5 - at.y);
        if (distance < best)
        {
            best = distance;
            nearest = i;
        }
    }
    return nearest;
}

void CViewerEditor::OnPointer(bool valid, double lon, double lat)
{
    auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected);
    if (!valid || !m_gesture || m_insertAt < 0 || !line)
        return;
    // Within the drag distance the press is still a click, which inserts at the midpoint.
    if (!m_previewed && (m_pointerPixel - m_pressPixel).manhattanLength() < QApplication::startDragDistance())
        return;
    CVector3D to(lon, lat, 0.0);
    Snap(&to);
    if (m_previewed)
        line->Modify(m_insertAt, to);
    else
        line->Insert(m_insertAt, to);
    m_previewed = true;
    // The gadget left its handle under the pointer: it shows where the point goes.
    if (auto* handle = dynamic_cast<IZoDotMapObject*>(m_graphics.LookupGraphicObject(m_pressedId)))
        handle->SetPosition(to);
}

bool CViewerEditor::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == m_viewport && (type == QEvent::MouseButtonPress || type == QEvent::MouseMove))
    {
        m_pointerPixel = static_cast<QMouseEvent*>(event)->pos();
        if (type == QEvent::MouseButtonPress)
            m_pressPixel = m_pointerPixel;
    }
    // The gadget backs a midpoint drag out without telling its user.
    else if (watched == &m_view && type == QEvent::KeyPress && m_insertAt >= 0 &&
             static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        Cancel();
    return false;
}

void CViewerEditor::AttachGadget()
{
    // Whatever gadget had the gesture goes away: back the gesture out.
    Cancel();
    for (IZoGraphicsEditObject* gadget : m_gadgets)
    {
        if (gadget)
            gadget->DetachEditableUser();
    }
    IZoGraphicsEditObject* gadget = m_gadgets[m_tool];
    if (!m_selected || !gadget)
        return;
    if (m_tool == kVertices && !dynamic_cast<IZoPolylineMapObject*>(m_selected))
        return;
    gadget->AttachEditableUser(this);
    gadget->UpdateEditor(0);
}

// --- the gesture ---------------------------------------------------------------

void CViewerEditor::Begin()
{
    m_gesture = true;
    m_insertAt = -1;
    m_previewed = false;
    m_before = Capture(m_selected);
    m_startPosition = GetEditorPosition(nullptr);
    m_pivot = GetEditorControlPoint(nullptr);
    m_startBox = GetEditorBoundingBox(nullptr);
    m_snap.Clear();
    for (IZoGraphicsMapObject* object : m_editables)
    {
        if (object == m_selected)
            continue;
        const SShape shape = Capture(object);
        for (const CVector3D& p : shape.points)
            m_snap.Add(object->GetObjectID(), p);
    }
}

void CViewerEditor::Commit(const QString& text)
{
    if (m_hint)
        m_hint->SetVisible(false);
    if (!m_gesture || !m_selected)
        return;
    m_gesture = false;
    m_insertAt = -1;
    m_previewed = false;
    SShape after = Capture(m_selected);
    // A click on a handle completes a gesture that changed nothing.
    const auto same = [](const CVector3D& a, const CVector3D& b) { return a == b; };
    if (after.rotation == m_before.rotation && after.points.size() == m_before.points.size() &&
        std::equal(after.points.begin(), after.points.end(), m_before.points.begin(), same))
        return;
    m_undo.push(new CShapeCommand(*this, m_selected, m_before, std::move(after), text));
}

void CViewerEditor::Cancel()
{
    if (m_hint)
        m_hint->SetVisible(false);
    if (m_gesture && m_selected)
        Apply(m_selected, m_before);
    m_gesture = false;
    m_insertAt = -1;
    m_previewed = false;
}

bool CViewerEditor::Snap(CVector3D* point)
{
    CVector3D found;
    const bool snapped = m_snap.FindNearest(m_view.GetMapModule(), *point, kSnapPixels,
                                            m_selected ? m_selected->GetObjectID() : -1, &found);
    if (snapped)
        *point = CVector3D(found.x, found.y, 0.0);
    if (m_hint)
    {
        if (snapped)
            m_hint->SetPosition(*point);
        m_hint->SetVisible(snapped);
    }
    return snapped;
}

// --- geometry ------------------------------------------------------------------

CViewerEditor::SShape CViewerEditor::Capture(IZoGraphicsMapObject* object) const
{
    SShape shape;
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(object))
        shape.points = line->GetData();
    else if (auto* rect = dynamic_cast<IZoRectangleMapObject*>(object))
    {
        shape.extent = rect->GetExtent();
        shape.rotation = rect->GetRotation();
        const EXTENT& e = shape.extent;
        shape.points = {CVector3D(e.xmin, e.ymin, 0), CVector3D(e.xmax, e.ymin, 0), CVector3D(e.xmax, e.ymax, 0),
                        CVector3D(e.xmin, e.ymax, 0)};
        // The corners where it is drawn: turned about its centre on the screen.
        const CZoMapModule* map = m_view.GetMapModule();
        const CVector3D c = rect->GetCenter();
        QPointF centre;
        if (shape.rotation != 0.0 && map && map->GeoToScenePoint(c.x, c.y, &centre))
        {
            for (CVector3D& p : shape.points)
                TurnOnScreen(map, centre, shape.rotation, &p);
        }
    }
    else if (auto* dot = dynamic_cast<IZoDotMapObject*>(object))
    {
        shape.position = dot->GetPosition();
        shape.rotation = dot->GetRotation();
        shape.points = {shape.position};
    }
    else if (auto* text = dynamic_cast<IZoTextMapObject*>(object))
    {
        shape.position = text->GetPosition();
        shape.rotation = text->GetRotateAngle();
        shape.points = {shape.position};
    }
    return shape;
}

void CViewerEditor::Apply(IZoGraphicsMapObject* object, const SShape& shape)
{
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(object))
        line->SetData(shape.points);
    else if (auto* rect = dynamic_cast<IZoRectangleMapObject*>(object))
    {
        rect->SetExtent(shape.extent);
        rect->SetRotation(shape.rotation);
    }
    else if (auto* dot = dynamic_cast<IZoDotMapObject*>(object))
    {
        dot->SetPosition(shape.position);
        dot->SetRotation(shape.rotation);
    }
    else if (auto* text = dynamic_cast<IZoTextMapObject*>(object))
    {
        text->SetPosition(shape.position);
        text->SetRotateAngle(shape.rotation);
    }
    if (object == m_selected && m_gadgets[m_tool] && !m_gesture)
        m_gadgets[m_tool]->UpdateEditor(0);
}

CAABB CViewerEditor::Bounds() const
{
    CAABB box;
    for (const CVector3D& p : Capture(m_selected).points)
        box.Extend(p);
    return box;
}

void CViewerEditor::Translate(const CVector3D& to)
{
    const CVector3D by(to.x - m_startPosition.x, to.y - m_startPosition.y, 0.0);
    SShape shape = m_before;
    for (CVector3D& p : shape.points)
        p = Shifted(p, by);
    shape.position = Shifted(shape.position, by);
    shape.extent = EXTENT{m_before.extent.xmin + by.x, m_before.extent.ymin + by.y, m_before.extent.xmax + by.x,
                          m_before.extent.ymax + by.y};
    Apply(m_selected, shape);
}

void CViewerEditor::Rotate(double angle)
{
    SShape shape = m_before;
    shape.rotation = angle;
    // Lines turn their points about the pivot, on the screen's grid so that
    // the shape keeps its look at every latitude.
    const CZoMapModule* map = m_view.GetMapModule();
    QPointF centre;
    if (dynamic_cast<IZoPolylineMapObject*>(m_selected) && map && map->GeoToScenePoint(m_pivot.x, m_pivot.y, &centre))
    {
        for (CVector3D& p : shape.points)
            TurnOnScreen(map, centre, angle - m_before.rotation, &p);
    }
    Apply(m_selected, shape);
}

// --- the editable user -----------------------------------------------------------

CVector3D CViewerEditor::GetEditorPosition(IZoGraphicsEditObject*) const
{
    if (auto* dot = dynamic_cast<IZoDotMapObject*>(m_selected))
        return dot->GetPosition();
    if (auto* text = dynamic_cast<IZoTextMapObject*>(m_selected))
        return text->GetPosition();
    const CAABB box = Bounds();
    return m_selected ? CVector3D(box.Center().x, box.Center().y, 0.0) : CVector3D();
}

bool CViewerEditor::OnStartTranslation(IZoGraphicsEditObject* editor)
{
    Begin();
    // The key-point set starts its drags here too; a midpoint's inserts a point.
    if (editor && editor == m_gadgets[kVertices])
    {
        const int segment = PressedSegment();
        m_insertAt = segment < 0 ? -1 : segment + 1;
    }
    return false;
}

bool CViewerEditor::OnProcessTranslation(IZoGraphicsEditObject* editor, const CVector3D& position)
{
    CVector3D to = position;
    const bool snapped = Snap(&to);
    Translate(to);
    if (snapped)
        editor->SetEditorPoint(to, 0);
    return snapped;
}

bool CViewerEditor::OnBackoutTranslation(IZoGraphicsEditObject*, const CVector3D&)
{
    Cancel();
    return false;
}

bool CViewerEditor::OnCompleteTranslation(IZoGraphicsEditObject* editor, const CVector3D& position)
{
    const bool snapped = OnProcessTranslation(editor, position);
    Commit(tr("Move"));
    return snapped;
}

double CViewerEditor::GetEditorRotation(IZoGraphicsEditObject*) const
{
    return Capture(m_selected).rotation;
}

CVector3D CViewerEditor::GetEditorControlPoint(IZoGraphicsEditObject* editor) const
{
    if (auto* rect = dynamic_cast<IZoRectangleMapObject*>(m_selected))
        return rect->GetCenter();
    auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected);
    const CZoMapModule* map = m_view.GetMapModule();
    if (!line || !map)
        return GetEditorPosition(editor);
    // The vertices' mean on the screen stays put while they turn about it, so
    // that one turn after another keeps the pivot (their box's centre moves).
    QPointF sum;
    int count = 0;
    for (const CVector3D& p : line->GetData())
    {
        QPointF s;
        if (map->GeoToScenePoint(p.x, p.y, &s))
        {
            sum += s;
            ++count;
        }
    }
    CVector3D pivot;
    if (count == 0 || !map->ScenePointToGeo(sum / count, &pivot.x, &pivot.y))
        return GetEditorPosition(editor);
    return pivot;
}

bool CViewerEditor::OnStartRotation(IZoGraphicsEditObject*)
{
    Begin();
    return false;
}

bool CViewerEditor::OnProcessRotation(IZoGraphicsEditObject*, double angle, double)
{
    Rotate(angle);
    return false;
}

bool CViewerEditor::OnBackoutRotation(IZoGraphicsEditObject*, double)
{
    Cancel();
    return false;
}

bool CViewerEditor::OnCompleteRotation(IZoGraphicsEditObject*, double angle)
{
    Rotate(angle);
    Commit(tr("Rotate"));
    return false;
}

EXTENT CViewerEditor::GetEditorBoundingBox(IZoGraphicsEditObject*) const
{
    if (!m_selected)
        return {};
    const CAABB box = Bounds();
    return EXTENT{box.min.x, box.min.y, box.max.x, box.max.y};
}

bool CViewerEditor::OnStartScaleBoundingBox(IZoGraphicsEditObject*)
{
    Begin();
    return false;
}

bool CViewerEditor::OnProcessScaleBoundingBox(IZoGraphicsEditObject*, EXTENT& extent)
{
    // Points keep their place relative to the box.
    const EXTENT& from = m_startBox;
    SShape shape = m_before;
    for (CVector3D& p : shape.points)
    {
        p.x = Along(p.x, from.xmin, from.xmax, extent.xmin, extent.xmax);
        p.y = Along(p.y, from.ymin, from.ymax, extent.ymin, extent.ymax);
    }
    shape.extent = EXTENT{std::min(extent.xmin, extent.xmax), std::min(extent.ymin, extent.ymax),
                          std::max(extent.xmin, extent.xmax), std::max(extent.ymin, extent.ymax)};
    if (m_before.rotation != 0.0)
    {
        // A turned rectangle keeps its angle: its centre follows the box, and
        // each side grows as the box's side it lies nearer to.
        const EXTENT& e = m_before.extent;
        double across = SizeRatio(extent.xmax - extent.xmin, from.xmax - from.xmin);
        double down = SizeRatio(extent.ymax - extent.ymin, from.ymax - from.ymin);
        const double turn = std::fmod(std::abs(m_before.rotation), 180.0);
        if (turn > 45.0 && turn < 135.0)
            std::swap(across, down);
        const double cx = Along((e.xmin + e.xmax) * 0.5, from.xmin, from.xmax, extent.xmin, extent.xmax);
        const double cy = Along((e.ymin + e.ymax) * 0.5, from.ymin, from.ymax, extent.ymin, extent.ymax);
        const double halfWidth = (e.xmax - e.xmin) * 0.5 * across;
        const double halfHeight = (e.ymax - e.ymin) * 0.5 * down;
        shape.extent = EXTENT{cx - halfWidth, cy - halfHeight, cx + halfWidth, cy + halfHeight};
    }
    if (!shape.points.empty())
        shape.position = shape.points.front();
    Apply(m_selected, shape);
    return false;
}

bool CViewerEditor::OnBackoutScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&)
{
    Cancel();
    return false;
}

bool CViewerEditor::OnCompleteScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent)
{
    OnProcessScaleBoundingBox(editor, extent);
    Commit(tr("Scale"));
    return false;
}

std::vector<CVector3D> CViewerEditor::GetEditorKeyPointSet(IZoGraphicsEditObject*)
{
    auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected);
    return line ? line->GetData() : std::vector<CVector3D>();
}

bool CViewerEditor::IsKeyPointClosePath() const
{
    auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected);
    return line && line->IsClosed();
}

bool CViewerEditor::OnProcessKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point)
{
    auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected);
    if (!line)
        return false;
    CVector3D to = point;
    const bool snapped = Snap(&to);
    line->Modify(index, to);
    // The gadget shows the snapped point once it re-reads the line.
    if (snapped && editor)
        editor->UpdateEditor(0);
    return snapped;
}

bool CViewerEditor::OnBackoutKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&)
{
    Cancel();
    return false;
}

bool CViewerEditor::OnCompleteKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point)
{
    const bool snapped = OnProcessKeyPointChange(editor, index, point);
    Commit(tr("Move vertex"));
    return snapped;
}

bool CViewerEditor::OnCompleteKeyPointInsert(IZoGraphicsEditObject* editor, int index, const CVector3D& point)
{
    CVector3D to = point;
    const bool snapped = Snap(&to);
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected))
    {
        if (m_previewed)
            line->Remove(m_insertAt);
        line->Insert(index, to);
    }
    Commit(tr("Insert vertex"));
    // The gadget shows the snapped point once it re-reads the line.
    if (snapped && editor)
        editor->UpdateEditor(0);
    return snapped;
}

bool CViewerEditor::OnCompleteKeyPointDelete(IZoGraphicsEditObject*, int index, const CVector3D&)
{
    Begin();
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected))
        line->Remove(index);
    Commit(tr("Delete vertex"));
    return false;
}

CViewerEditor* AddEditingDemo(CZoGraphicsModule& graphics, CZoMapView& view, QMainWindow* window)
{
    auto* editor = new CViewerEditor(graphics, view, window);
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Editable shapes");

    IZoPolylineMapObject* route = graphics.CreatePolylineMapObject("Route", layer);
    if (route)
    {
        route->SetData({CVector3D(115.86, -31.95, 0), CVector3D(121.47, -30.75, 0), CVector3D(133.88, -23.70, 0),
                        CVector3D(130.84, -12.46, 0)});
        route->SetPenColor(QColor(200, 60, 20));
        route->SetPenWidth(3.0f);
        route->SetInteractive(true);
        editor->AddEditable(route);
    }
    if (IZoRectangleMapObject* box = graphics.CreateRectangleMapObject("Survey area", layer))
    {
        box->SetExtent(EXTENT{140.0, -30.0, 148.0, -24.0});
        box->SetBrushColor(QColor(30, 120, 200, 90));
        box->SetPenColor(QColor(30, 120, 200));
        box->SetInteractive(true);
        editor->AddEditable(box);
    }
    if (IZoDotMapObject* dot = graphics.CreateDotMapObject("Sydney", layer))
    {
        dot->SetPosition(CVector3D(151.21, -33.87, 0));
        dot->SetRadius(7.0);
        dot->SetBrushColor(QColor(250, 200, 40));
        dot->SetPenColor(QColor(120, 80, 0));
        dot->SetInteractive(true);
        editor->AddEditable(dot);
    }
    editor->InstallActions(window);
    // Shown at start: the route's vertices with their midpoint handles.
    editor->SetTool(CViewerEditor::kVertices);
    editor->Select(route);
    return editor;
}
