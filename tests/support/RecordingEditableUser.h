#pragma once

#include <ZoGraphics/IZoGraphicsEditableUser.h>
#include <ZoGraphics/IZoMapView.h>

#include <QAbstractScrollArea>
#include <QString>

#include <functional>
#include <set>
#include <string>
#include <vector>

// An editable user that writes every callback as "Operation args" (values
// with up to 4 decimals) and answers true for the operations in takeOver.
// onCall runs inside each callback, after it is recorded.
class RecordingEditableUser : public IZoGraphicsEditableUser
{
public:
// Each callback records itself under a short name with its arguments.
#define ZO_RECORD(Callback, Name, Params, Args) \
    bool Callback(IZoGraphicsEditObject* e Params) override { return Record(e, Name, Args); }
#define ZO_POINT , const CVector3D& p
#define ZO_INDEX_POINT , int i, const CVector3D& p
#define ZO_ANGLES , double angle, double delta
#define ZO_ANGLE , double angle
#define ZO_BOX , EXTENT& b
    CVector3D GetEditorPosition(IZoGraphicsEditObject*) const override { return position; }
    ZO_RECORD(OnStartTranslation, "StartTranslation", , "")
    ZO_RECORD(OnProcessTranslation, "ProcessTranslation", ZO_POINT, Point(p))
    ZO_RECORD(OnBackoutTranslation, "BackoutTranslation", ZO_POINT, Point(p))
    ZO_RECORD(OnCompleteTranslation, "CompleteTranslation", ZO_POINT, Point(p))
    double GetEditorRotation(IZoGraphicsEditObject*) const override { return rotation; }
    CVector3D GetEditorControlPoint(IZoGraphicsEditObject*) const override { return controlPoint; }
    ZO_RECORD(OnStartRotation, "StartRotation", , "")
    ZO_RECORD(OnProcessRotation, "ProcessRotation", ZO_ANGLES, Number(angle) + "," + Number(delta))
    ZO_RECORD(OnBackoutRotation, "BackoutRotation", ZO_ANGLE, Number(angle))
    ZO_RECORD(OnCompleteRotation, "CompleteRotation", ZO_ANGLE, Number(angle))
    EXTENT GetEditorBoundingBox(IZoGraphicsEditObject*) const override { return box; }
    ZO_RECORD(OnStartScaleBoundingBox, "StartScale", , "")
    bool OnProcessScaleBoundingBox(IZoGraphicsEditObject* e, EXTENT& b) override { return Adjust(e, "ProcessScale", b); }
    ZO_RECORD(OnBackoutScaleBoundingBox, "BackoutScale", ZO_BOX, Box(b))
    bool OnCompleteScaleBoundingBox(IZoGraphicsEditObject* e, EXTENT& b) override { return Adjust(e, "CompleteScale", b); }
    std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject*) override { return points; }
    bool IsKeyPointClosePath() const override { return closed; }
    bool IsEnableVirtualIndicate() const override { return indicators; }
    ZO_RECORD(OnProcessKeyPointChange, "ProcessKeyPoint", ZO_INDEX_POINT, std::to_string(i) + " " + Point(p))
    ZO_RECORD(OnBackoutKeyPointChange, "BackoutKeyPoint", ZO_INDEX_POINT, std::to_string(i) + " " + Point(p))
    ZO_RECORD(OnCompleteKeyPointChange, "CompleteKeyPoint", ZO_INDEX_POINT, std::to_string(i) + " " + Point(p))
    ZO_RECORD(OnCompleteKeyPointInsert, "InsertKeyPoint", ZO_INDEX_POINT, std::to_string(i) + " " + Point(p))
    ZO_RECORD(OnCompleteKeyPointDelete, "DeleteKeyPoint", ZO_INDEX_POINT, std::to_string(i) + " " + Point(p))
#undef ZO_RECORD
#undef ZO_POINT
#undef ZO_INDEX_POINT
#undef ZO_ANGLES
#undef ZO_ANGLE
#undef ZO_BOX

    static std::string Number(double v) { return QString::number(v, 'f', 4).toStdString(); }
    static std::string Point(const CVector3D& p) { return Number(p.x) + "," + Number(p.y); }
    static std::string Box(const EXTENT& b)
    {
        return Number(b.xmin) + "," + Number(b.ymin) + "," + Number(b.xmax) + "," + Number(b.ymax);
    }
    std::vector<std::string> calls;
    std::vector<IZoGraphicsEditObject*> editors;
    std::set<std::string> takeOver;
    std::function<void(const std::string&)> onCall;
    std::function<void(EXTENT&)> adjustBox;
    CVector3D position;
    double rotation = 0.0;
    CVector3D controlPoint;
    EXTENT box;
    std::vector<CVector3D> points;
    bool closed = false;
    bool indicators = false;

private:
    // Records the box handed in, then lets adjustBox change it.
    bool Adjust(IZoGraphicsEditObject* editor, const char* operation, EXTENT& b)
    {
        const bool taken = Record(editor, operation, Box(b));
        if (adjustBox)
            adjustBox(b);
        return taken;
    }
    bool Record(IZoGraphicsEditObject* editor, const std::string& operation, const std::string& args)
    {
        calls.push_back(args.empty() ? operation : operation + " " + args);
        editors.push_back(editor);
        if (onCall)
            onCall(operation);
        return takeOver.count(operation) > 0;
    }
};

// A host view double laid out like FakeMapModule's scene at view scale 1:
// view pixel (x, y) is longitude x / 10, latitude -y / 10. Its scroll area
// takes the cursors.
class FakeEditView : public IZoMapView
{
public:
    QAbstractScrollArea* GetScrollArea() override { return &area; }
    bool ConvertPixelToGeo(int x, int y, double* lon, double* lat) override
    {
        *lon = x / 10.0;
        *lat = -y / 10.0;
        return true;
    }
    Qt::CursorShape Shape() const { return area.viewport()->cursor().shape(); }
    QAbstractScrollArea area;
};
