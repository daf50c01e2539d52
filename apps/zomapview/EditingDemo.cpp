#include "EditingDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <QUndoCommand>

#include <algorithm>
#include <cmath>

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
    QAction* undo = m_undo.createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    QAction* redo = m_undo.createRedoAction(this, tr("&Redo"));
    redo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    edit->addAction(undo);
    edit->addAction(redo);
}

void CViewerEditor::OnSceneEvent(const QString& name, const QVariant& value)
{
    if (name != QString::fromStdString(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS))
        return;
    for (const QVariant& id : value.toList())
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

void CViewerEditor::AttachGadget()
{
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
    m_before = Capture(m_selected);
    m_startPosition = GetEditorPosition(nullptr);
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

void CViewerEditor::Rotate(double angle, double delta)
{
    SShape shape = m_before;
    shape.rotation = angle;
    // Lines turn their points about the control point, on the screen's grid so
    // that the shape keeps its look at every latitude.
    CZoMapModule* map = m_view.GetMapModule();
    const CVector3D c = GetEditorControlPoint(nullptr);
    QPointF centre;
    if (dynamic_cast<IZoPolylineMapObject*>(m_selected) && map && map->GeoToScenePoint(c.x, c.y, &centre))
    {
        const double r = delta * M_PI / 180.0;
        for (CVector3D& p : shape.points)
        {
            QPointF s;
            if (!map->GeoToScenePoint(p.x, p.y, &s))
                continue;
            const QPointF d = s - centre;
            const QPointF turned(centre.x() + d.x() * std::cos(r) - d.y() * std::sin(r),
                                 centre.y() + d.x() * std::sin(r) + d.y() * std::cos(r));
            map->ScenePointToGeo(turned, &p.x, &p.y);
        }
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

bool CViewerEditor::OnStartTranslation(IZoGraphicsEditObject*)
{
    Begin();
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
    return GetEditorPosition(editor);
}

bool CViewerEditor::OnStartRotation(IZoGraphicsEditObject*)
{
    Begin();
    return false;
}

bool CViewerEditor::OnProcessRotation(IZoGraphicsEditObject*, double angle, double delta)
{
    Rotate(angle, delta);
    return false;
}

bool CViewerEditor::OnBackoutRotation(IZoGraphicsEditObject*, double)
{
    Cancel();
    return false;
}

bool CViewerEditor::OnCompleteRotation(IZoGraphicsEditObject*, double angle)
{
    Rotate(angle, angle - m_before.rotation);
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
        p.x = extent.xmin + Fraction(p.x, from.xmin, from.xmax) * (extent.xmax - extent.xmin);
        p.y = extent.ymin + Fraction(p.y, from.ymin, from.ymax) * (extent.ymax - extent.ymin);
    }
    shape.extent = EXTENT{std::min(extent.xmin, extent.xmax), std::min(extent.ymin, extent.ymax),
                          std::max(extent.xmin, extent.xmax), std::max(extent.ymin, extent.ymax)};
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
    if (snapped)
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

bool CViewerEditor::OnCompleteKeyPointInsert(IZoGraphicsEditObject*, int index, const CVector3D& point)
{
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(m_selected))
        line->Insert(index, point);
    Commit(tr("Insert vertex"));
    return false;
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
