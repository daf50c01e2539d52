#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <vector>

class IZoGraphicsEditObject;

/// Implemented by the host: what an edit gadget edits. Each callback gets the
/// gadget, so one user can serve several. A callback returning true has
/// handled the step itself and the gadget leaves its handles alone; the
/// defaults handle nothing and report zero values.
///
/// A drag runs the same way on every gadget (IZoGraphicsEditObject):
/// 1. Press on a handle: the family's Start callback. False: the gadget records
///    the start value and shows its drag cursor. True: the user has taken the
///    gesture; the start value stays zero and the cursor is left alone.
/// 2. Every pointer move over the dragged handle (the rotation axis follows the
///    pointer anywhere): the Process callback with the new value. False: the
///    gadget moves its handles there. True: the handles stay put until the user
///    moves them with IZoGraphicsEditObject::SetEditorPoint or
///    IZoGraphicsEditObject::UpdateEditor.
/// 3. Then exactly one of:
///    - release over the handle: the Complete callback with the final value.
///      False: the gadget puts its handles there and restores the view's cursor.
///      True: the gadget does nothing more (the scale box's frame stays shown
///      until UpdateEditor).
///    - Escape: the Backout callback with the start value. False: the gadget puts
///      its handles back as they were at the press and restores the cursor. True:
///      the gadget does nothing more.
///
/// A drag ended by disabling, detaching or uninitialising the gadget gets no
/// callback at all. True always means "handled", never "refused": to refuse a
/// step, put the handles where they belong (UpdateEditor) and return true. The
/// gadget never changes the edited thing; applying the values, typically in
/// Process and Complete, is the user's job.
///
/// Callbacks come on the GUI thread from within the host's event dispatch. They
/// may call SetEditorPoint and UpdateEditor on the gadget but must not destroy
/// it. Points are longitude and latitude in degrees with z = 0; boxes are
/// `EXTENT`s in degrees. The user must outlive its attachment to a gadget.
class ZOGRAPHICS_EXPORT IZoGraphicsEditableUser
{
public:
    IZoGraphicsEditableUser() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoGraphicsEditableUser(const IZoGraphicsEditableUser&) = default;
    IZoGraphicsEditableUser& operator=(const IZoGraphicsEditableUser&) = default;
    /// @}
    virtual ~IZoGraphicsEditableUser();                                                          // 0

    /// Where the translate ball stands: the edited thing's position. Read when the
    /// user is attached and on UpdateEditor(0). Default (0, 0, 0).
    virtual CVector3D GetEditorPosition(IZoGraphicsEditObject* editor) const;                    // 1
    /// A press on the translate ball's dot, or on a key-point set's point or
    /// midpoint handle. True takes the gesture: no start value is recorded, so a
    /// later Escape backs out to (0, 0, 0). Default false.
    virtual bool OnStartTranslation(IZoGraphicsEditObject* editor);                              // 2
    /// A move of the translate ball to position during a drag. False lets the ball
    /// follow; true keeps it still. Default false.
    virtual bool OnProcessTranslation(IZoGraphicsEditObject* editor, const CVector3D& position); // 3
    /// Escape during a translate-ball drag. start is the ball's position at the
    /// press ((0, 0, 0) after a true OnStartTranslation). False puts the ball back
    /// there and restores the cursor. Default false.
    virtual bool OnBackoutTranslation(IZoGraphicsEditObject* editor, const CVector3D& start);    // 4
    /// Release of the translate ball at position, which ends the drag. False
    /// leaves the ball there and restores the cursor; true leaves the drag cursor
    /// until the pointer leaves the ball. Default false.
    virtual bool OnCompleteTranslation(IZoGraphicsEditObject* editor, const CVector3D& position); // 5

    /// The edited thing's current angle in degrees. Like every angle of the
    /// rotation axis it runs clockwise from the map's up direction. Read at each
    /// press as the start angle (unless OnStartRotation() answers true). Default 0.
    virtual double GetEditorRotation(IZoGraphicsEditObject* editor) const;                       // 6
    /// The point the rotation axis turns about. Read on UpdateEditor(0), not on
    /// attaching. Default (0, 0, 0).
    virtual CVector3D GetEditorControlPoint(IZoGraphicsEditObject* editor) const;                // 7
    /// A press on the rotation axis's dot. True takes the gesture and the start
    /// angle is 0 instead of GetEditorRotation(). Default false.
    virtual bool OnStartRotation(IZoGraphicsEditObject* editor);                                 // 8
    /// A move during a turn, wherever the pointer is.
    ///
    /// delta is the pointer's bearing about the control point in degrees,
    /// clockwise from the map's up direction (the Y axis), followed continuously
    /// so that a full turn reads 360 rather than 0; angle is the start angle plus
    /// delta. A move onto the control point's own pixel reports nothing. False
    /// draws the guide line to the pointer and shows both angles in the label
    /// there; true leaves guide and label as they are. Default false.
    // 9: the angle reached so far and the change since the press, degrees.
    virtual bool OnProcessRotation(IZoGraphicsEditObject* editor, double angle, double delta);
    /// Escape during a turn. start is the start angle. False hides the guide line
    /// and the label and restores the cursor. Default false.
    virtual bool OnBackoutRotation(IZoGraphicsEditObject* editor, double start);                 // 10
    /// Release after a turn, anywhere. angle is the start angle plus the last delta.
    /// False hides the guide line and the label and restores the cursor. Default false.
    virtual bool OnCompleteRotation(IZoGraphicsEditObject* editor, double angle);                // 11

    /// The edited thing's geographic box, on which the scale box lays out its
    /// handles. Read on attaching, on UpdateEditor(0 to 7) and at each press as the
    /// start box (unless OnStartScaleBoundingBox() answers true). Default all 0.
    virtual EXTENT GetEditorBoundingBox(IZoGraphicsEditObject* editor) const;                    // 12
    /// A press on one of the scale box's eight handles. False records the start
    /// box and shows the dashed frame; true does neither, and the start box stays
    /// all 0. Default false.
    virtual bool OnStartScaleBoundingBox(IZoGraphicsEditObject* editor);                         // 13
    /// A move of the dragged scale-box handle.
    ///
    /// extent is the frame's box with the sides that handle moves set to the
    /// pointer: corners move two sides, edge midpoints one. Dragged past the
    /// opposite side the box is inverted (minimum above maximum) until the
    /// release. The gadget enforces no minimum size or aspect ratio: the user may
    /// change extent in place and return false, and the frame and handles follow
    /// the changed box. True leaves them alone. Default false.
    virtual bool OnProcessScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent);       // 14
    /// Escape during a scale drag. start is the start box and may be changed in
    /// place. False hides the frame and lays the handles out on start. Default false.
    virtual bool OnBackoutScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& start);        // 15
    /// Release of the dragged scale-box handle. extent is the final box,
    /// normalised so that minimum values are below maximum ones, and may be
    /// changed in place. False hides the frame, lays the handles out on extent and
    /// restores the cursor. Default false.
    virtual bool OnCompleteScaleBoundingBox(IZoGraphicsEditObject* editor, EXTENT& extent);      // 16

    /// One key point by index. The library's gadgets do not call this overload.
    /// Default (0, 0, 0).
    virtual CVector3D GetEditorKeyPointSet(IZoGraphicsEditObject* editor, int index);            // 17
    /// The key points, in order, that the key-point set shows a handle for. Read on
    /// attaching and on every UpdateEditor(). Indices in the callbacks below are
    /// indices into this list. Default empty.
    virtual std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject* editor);          // 18
    /// Whether the key points form a closed ring. With three points or more a
    /// midpoint handle also sits on the closing segment, and a point can only be
    /// deleted while more than three remain (more than two on an open path). Read
    /// with the points. Default false.
    virtual bool IsKeyPointClosePath() const;                                                    // 19
    /// Whether the key-point set shows a small midpoint handle on every segment.
    /// Such a handle inserts a point when dragged and released. Read with the points.
    /// Default false.
    virtual bool IsEnableVirtualIndicate() const;                                                // 20: midpoint handles
    /// Not called by the library's gadgets. The key-point set reports a press with
    /// OnStartTranslation(). Default false.
    virtual bool OnStartKeyPointSet(IZoGraphicsEditObject* editor);                              // 21
    /// A move of key point index to point during a drag. False moves its handle
    /// (and the midpoint handles beside it). Dragging a midpoint handle reports no
    /// move. Default false.
    virtual bool OnProcessKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point);  // 22
    /// Escape while key point index is dragged. start is its position at the press
    /// ((0, 0, 0) after a true OnStartTranslation). False puts its handle back.
    /// Escape while a midpoint handle is dragged reports nothing and puts the
    /// handle back. Default false.
    virtual bool OnBackoutKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& start);  // 23
    /// Release of key point index at point, or at its own position when it was
    /// pressed without a move. False moves its handle there. Default false.
    virtual bool OnCompleteKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point); // 24
    /// Release of a midpoint handle: a new point belongs at index.
    ///
    /// The handle sat between points index - 1 and index (the closing one after
    /// the last point); the later points move up by one. point is where it was
    /// released, or the segment's middle without a move. False inserts the
    /// gadget's own handle there. Default false.
    virtual bool OnCompleteKeyPointInsert(IZoGraphicsEditObject* editor, int index, const CVector3D& point); // 25
    /// A double click on key point index: the point is to go.
    ///
    /// point is its position; the later points move down by one. Not called while
    /// only two points remain (three on a closed path). The click's press and
    /// release have already completed a change of that point at its own position.
    /// False removes the gadget's handle. Default false.
    virtual bool OnCompleteKeyPointDelete(IZoGraphicsEditObject* editor, int index, const CVector3D& point); // 26
};
