#pragma once

#include <ZoGraphics/IZoGraphicsEditableUser.h>
#include <ZoGraphics/CZoVertexSnapIndex.h>

#include <QObject>
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
// command; Escape backs a gesture out. Dragged points and the move ball snap
// to the nearest vertex of another object within kSnapPixels.
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
    void AttachGadget();
    void Begin();
    void Commit(const QString& text);
    void Cancel();
    // Snaps the point to a vertex of another object; shows or hides the hint.
    bool Snap(CVector3D* point);
    CAABB Bounds() const;
    void Translate(const CVector3D& to);
    void Rotate(double angle, double delta);

    CZoGraphicsModule& m_graphics;
    CZoMapView& m_view;
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
    EXTENT m_startBox;
    bool m_gesture = false;
};

// Editable shapes over Australia, selected with the vertex tool at start.
CViewerEditor* AddEditingDemo(CZoGraphicsModule& graphics, CZoMapView& view, QMainWindow* window);
