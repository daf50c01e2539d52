#pragma once

#include <ZoGraphics/IZoGraphicsEditableUser.h>
#include <ZoGraphics/CZoVertexSnapIndex.h>

#include <QObject>
#include <QPoint>
#include <QUndoStack>
#include <QVariant>

#include <array>
#include <vector>

class CZoGraphicsModule;
class CZoMapView;
class IZoDotMapObject;
class IZoGraphicsEditObject;
class IZoGraphicsMapLayer;
class IZoGraphicsMapObject;
class QActionGroup;
class QMainWindow;

// The viewer's editable user: a click selects one of the editable objects,
// the current tool's gadget goes onto it, and every gesture the gadget
// reports is applied to the object. A completed gesture becomes one undo
// command; Escape backs a gesture out, and so do Undo and Redo before they
// step. Dragged points, inserted ones and the move ball snap to the nearest
// vertex (a turned rectangle's turned corner) of another object within
// kSnapPixels. A gesture works on the geometry it started from, so that a
// turn about the start's pivot comes back exactly.
class CViewerEditor : public QObject, public IZoGraphicsEditableUser
{
    Q_OBJECT

public:
    enum ETool
    {
        kMove,
        kScale,
        kRotate,
        kVertices,
        kToolCount
    };
    static constexpr double kSnapPixels = 10.0;

    CViewerEditor(CZoGraphicsModule& graphics, CZoMapView& view, QObject* parent = nullptr);
    ~CViewerEditor() override;
    Q_DISABLE_COPY(CViewerEditor)

    // Objects that a click may select (dots, rectangles, polylines, texts).
    void AddEditable(IZoGraphicsMapObject* object);
    void Select(IZoGraphicsMapObject* object);
    IZoGraphicsMapObject* GetSelected() const { return m_selected; }
    void SetTool(ETool tool);
    ETool GetTool() const { return m_tool; }
    IZoGraphicsEditObject* GetGadget(ETool tool) const { return m_gadgets[tool]; }
    QUndoStack* GetUndoStack() { return &m_undo; }
    IZoDotMapObject* GetSnapHint() const { return m_hint; }
    // The tool bar and the Edit menu with undo and redo.
    void InstallActions(QMainWindow* window);
    // A gesture under way is backed out first: the step then undone or redone
    // is a completed one, and the gadget's drag ends with it.
    void Undo();
    void Redo();

    CVector3D GetEditorPosition(IZoGraphicsEditObject* editor) const override;
    bool OnStartTranslation(IZoGraphicsEditObject* editor) override;
    bool OnProcessTranslation(IZoGraphicsEditObject* editor, const CVector3D& position) override;
    bool OnBackoutTranslation(IZoGraphicsEditObject* editor, const CVector3D& start) override;
    bool OnCompleteTranslation(IZoGraphicsEditObject* editor, const CVector3D& position) override;
    double GetEditorRotation(IZoGraphicsEditObject* editor) const override;
    CVector3D GetEditorControlPoint(IZoGraphicsEditObject* editor) const override;
    bool OnStartRotation(IZoGraphicsEditObject* editor) override;
    bool OnProcessRotation(IZoGraphicsEditObject* editor, double angle, double delta) override;
    bool OnBackoutRotation(IZoGraphicsEditObject* editor, double start) override;
    bool OnCompleteRotation(IZoGraphicsEditObject* editor, double angle) override;
    EXTENT GetEditorBoundingBox(IZoGraphicsEditObject* editor) const override;
    bool OnStartScaleBoundingBox(IZoGraphicsEditObject* editor) override;
    bool OnProcessScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent) override;
    bool OnBackoutScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& start) override;
    bool OnCompleteScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent) override;
    std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject* editor) override;
    bool IsKeyPointClosePath() const override;
    bool IsEnableVirtualIndicate() const override { return true; }
    bool OnProcessKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point) override;
    bool OnBackoutKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& start) override;
    bool OnCompleteKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point) override;
    bool OnCompleteKeyPointInsert(IZoGraphicsEditObject* editor, int index, const CVector3D& point) override;
    bool OnCompleteKeyPointDelete(IZoGraphicsEditObject* editor, int index, const CVector3D& point) override;

    // The geometry of an object, as a command keeps it before and after.
    struct SShape
    {
        std::vector<CVector3D> points;
        EXTENT extent;
        CVector3D position;
        double rotation = 0.0;
    };
    SShape Capture(IZoGraphicsMapObject* object) const;
    void Apply(IZoGraphicsMapObject* object, const SShape& shape);

private:
    void OnSceneEvent(const QString& name, const QVariant& value);
    // A new point follows the pointer while a midpoint handle is dragged.
    void OnPointer(bool valid, double lon, double lat);
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool IsHandle(int objectId) const;
    // The segment whose midpoint handle was just pressed; -1 for any other handle.
    int PressedSegment() const;
    void EndGesture();
    void AttachGadget();
    void Begin();
    void Commit(const QString& text);
    void Cancel();
    // Snaps the point to a vertex of another object; shows or hides the hint.
    bool Snap(CVector3D* point);
    CAABB Bounds() const;
    void Translate(const CVector3D& to);
    // Turns the geometry at the gesture's start about its pivot by the change
    // since the start.
    void Rotate(double angle);

    CZoGraphicsModule& m_graphics;
    CZoMapView& m_view;
    // Kept apart from the view: while the view is being destroyed its
    // viewport still reports events, and the view may no longer be asked.
    QObject* m_viewport = nullptr;
    IZoGraphicsMapLayer* m_layer = nullptr;
    std::array<IZoGraphicsEditObject*, kToolCount> m_gadgets{};
    IZoDotMapObject* m_hint = nullptr;
    std::vector<IZoGraphicsMapObject*> m_editables;
    IZoGraphicsMapObject* m_selected = nullptr;
    ETool m_tool = kMove;
    QUndoStack m_undo;
    QActionGroup* m_toolActions = nullptr;
    CZoVertexSnapIndex m_snap;
    SShape m_before;
    CVector3D m_startPosition;
    CVector3D m_pivot;
    EXTENT m_startBox;
    bool m_gesture = false;
    int m_pressedId = -1;
    // The index a midpoint drag inserts at (-1: none), and whether the point
    // is in the line yet.
    int m_insertAt = -1;
    bool m_previewed = false;
    QPoint m_pressPixel;
    QPoint m_pointerPixel;
};

// Editable shapes over Australia, selected with the vertex tool at start.
CViewerEditor* AddEditingDemo(CZoGraphicsModule& graphics, CZoMapView& view, QMainWindow* window);
