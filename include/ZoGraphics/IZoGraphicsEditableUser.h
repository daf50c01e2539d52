#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <vector>

class IZoGraphicsEditObject;

// Implemented by the host: what an edit gadget edits. Each callback gets the
// gadget, so one user can serve several. A callback returning true has
// handled the step itself and the gadget leaves its handles alone; the
// defaults handle nothing and report zero values.
class ZOGRAPHICS_EXPORT IZoGraphicsEditableUser
{
public:
    IZoGraphicsEditableUser() = default;
    IZoGraphicsEditableUser(const IZoGraphicsEditableUser&) = default;
    IZoGraphicsEditableUser& operator=(const IZoGraphicsEditableUser&) = default;
    virtual ~IZoGraphicsEditableUser();                                                          // 0

    virtual CVector3D GetEditorPosition(IZoGraphicsEditObject* editor) const;                    // 1
    virtual bool OnStartTranslation(IZoGraphicsEditObject* editor);                              // 2
    virtual bool OnProcessTranslation(IZoGraphicsEditObject* editor, const CVector3D& position); // 3
    virtual bool OnBackoutTranslation(IZoGraphicsEditObject* editor, const CVector3D& start);    // 4
    virtual bool OnCompleteTranslation(IZoGraphicsEditObject* editor, const CVector3D& position); // 5

    virtual double GetEditorRotation(IZoGraphicsEditObject* editor) const;                       // 6
    virtual CVector3D GetEditorControlPoint(IZoGraphicsEditObject* editor) const;                // 7
    virtual bool OnStartRotation(IZoGraphicsEditObject* editor);                                 // 8
    // 9: the angle reached so far and the change since the press, degrees.
    virtual bool OnProcessRotation(IZoGraphicsEditObject* editor, double angle, double delta);
    virtual bool OnBackoutRotation(IZoGraphicsEditObject* editor, double start);                 // 10
    virtual bool OnCompleteRotation(IZoGraphicsEditObject* editor, double angle);                // 11

    virtual EXTENT GetEditorBoundingBox(IZoGraphicsEditObject* editor) const;                    // 12
    virtual bool OnStartScaleBoundingBox(IZoGraphicsEditObject* editor);                         // 13
    virtual bool OnProcessScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent);       // 14
    virtual bool OnBackoutScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& start);        // 15
    virtual bool OnCompleteScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent);      // 16

    virtual CVector3D GetEditorKeyPointSet(IZoGraphicsEditObject* editor, int index);            // 17
    virtual std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject* editor);          // 18
    virtual bool IsKeyPointClosePath() const;                                                    // 19
    virtual bool IsEnableVirtualIndicate() const;                                                // 20: midpoint handles
    virtual bool OnStartKeyPointSet(IZoGraphicsEditObject* editor);                              // 21
    virtual bool OnProcessKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point);  // 22
    virtual bool OnBackoutKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& start);  // 23
    virtual bool OnCompleteKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point); // 24
    virtual bool OnCompleteKeyPointInsert(IZoGraphicsEditObject* editor, int index, const CVector3D& point); // 25
    virtual bool OnCompleteKeyPointDelete(IZoGraphicsEditObject* editor, int index, const CVector3D& point); // 26
};
