#pragma once

#include <ZoGraphics/IZoGraphicsEditableUser.h>
#include <ZoGraphics/IZoMapView.h>

#include <QAbstractScrollArea>
#include <QString>

#include <cmath>
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
    CVector3D GetEditorPosition(IZoGraphicsEditObject*) const override { return position; }
    bool OnStartTranslation(IZoGraphicsEditObject* e) override { return Record(e, "StartTranslation", ""); }
    bool OnProcessTranslation(IZoGraphicsEditObject* e, const CVector3D& p) override
    {
        return Record(e, "ProcessTranslation", Point(p));
    }
    bool OnBackoutTranslation(IZoGraphicsEditObject* e, const CVector3D& p) override
    {
        return Record(e, "BackoutTranslation", Point(p));
    }
    bool OnCompleteTranslation(IZoGraphicsEditObject* e, const CVector3D& p) override
    {
        return Record(e, "CompleteTranslation", Point(p));
    }

    double GetEditorRotation(IZoGraphicsEditObject*) const override { return rotation; }
    CVector3D GetEditorControlPoint(IZoGraphicsEditObject*) const override { return controlPoint; }
    bool OnStartRotation(IZoGraphicsEditObject* e) override { return Record(e, "StartRotation", ""); }
    bool OnProcessRotation(IZoGraphicsEditObject* e, double angle, double delta) override
    {
        return Record(e, "ProcessRotation", Number(angle) + "," + Number(delta));
    }
    bool OnBackoutRotation(IZoGraphicsEditObject* e, double start) override
    {
        return Record(e, "BackoutRotation", Number(start));
    }
    bool OnCompleteRotation(IZoGraphicsEditObject* e, double angle) override
    {
        return Record(e, "CompleteRotation", Number(angle));
    }

    EXTENT GetEditorBoundingBox(IZoGraphicsEditObject*) const override { return box; }
    bool OnStartScaleBoundingBox(IZoGraphicsEditObject* e) override { return Record(e, "StartScale", ""); }
    bool OnProcessScaleBoundingBox(IZoGraphicsEditObject* e, EXTENT& b) override
    {
        const bool taken = Record(e, "ProcessScale", Box(b));
        if (adjustBox)
            adjustBox(b);
        return taken;
    }
    bool OnBackoutScaleBoundingBox(IZoGraphicsEditObject* e, EXTENT& b) override
    {
        return Record(e, "BackoutScale", Box(b));
    }
    bool OnCompleteScaleBoundingBox(IZoGraphicsEditObject* e, EXTENT& b) override
    {
        const bool taken = Record(e, "CompleteScale", Box(b));
        if (adjustBox)
            adjustBox(b);
        return taken;
    }

    std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject*) override { return points; }
    bool IsKeyPointClosePath() const override { return closed; }
    bool IsEnableVirtualIndicate() const override { return indicators; }
    bool OnProcessKeyPointChange(IZoGraphicsEditObject* e, int i, const CVector3D& p) override
    {
        return Record(e, "ProcessKeyPoint", std::to_string(i) + " " + Point(p));
    }
    bool OnBackoutKeyPointChange(IZoGraphicsEditObject* e, int i, const CVector3D& p) override
    {
        return Record(e, "BackoutKeyPoint", std::to_string(i) + " " + Point(p));
    }
    bool OnCompleteKeyPointChange(IZoGraphicsEditObject* e, int i, const CVector3D& p) override
    {
        return Record(e, "CompleteKeyPoint", std::to_string(i) + " " + Point(p));
    }
    bool OnCompleteKeyPointInsert(IZoGraphicsEditObject* e, int i, const CVector3D& p) override
    {
        return Record(e, "InsertKeyPoint", std::to_string(i) + " " + Point(p));
    }
    bool OnCompleteKeyPointDelete(IZoGraphicsEditObject* e, int i, const CVector3D& p) override
    {
        return Record(e, "DeleteKeyPoint", std::to_string(i) + " " + Point(p));
    }

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
        if (offMap)
            return false;
        *lon = x / 10.0;
        *lat = -y / 10.0;
        return true;
    }
    // The view pixel of a geographic point.
    static int PixelX(double lon) { return static_cast<int>(std::lround(lon * 10.0)); }
    static int PixelY(double lat) { return static_cast<int>(std::lround(-lat * 10.0)); }
    Qt::CursorShape Shape() const { return area.viewport()->cursor().shape(); }

    QAbstractScrollArea area;
    bool offMap = false;
};
