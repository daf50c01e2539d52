#pragma once

#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/ZoCoreTypes.h>

class IZoGraphicsModule;
class IZoGraphicsMapLayer;
class IZoGraphicsEditableUser;

/// An on-map edit gadget. It draws its handles with ordinary map objects on a
/// layer, takes the host's view events and reports each step of a gesture to
/// the attached user, never touching the edited thing itself.
///
/// Four gadgets exist, each made by its creator on IZoGraphicsModule and given
/// back with IZoGraphicsModule::DestroyGraphicsEditObject:
/// - the translate ball (CreateTranslateEditObject): one dot at the user's
///   position, dragged to move it;
/// - the rotation axis (CreateRotationEditObject): a small dot on a control point
///   that the user presses and turns about, with a guide line and an angle label;
/// - the scale box (CreateScaleEditObject): eight dots on the corners and edge
///   midpoints of the user's box, with a dashed frame while one is dragged;
/// - the key-point set (CreateKeyPointSetEditObject): one dot per point of the
///   user's list, and optionally a small dot on each segment's middle that
///   inserts a point when dragged.
///
/// The handles are map objects named "CustomEditDot", "CustomEditLine" and
/// "CustomEditRect" (the angle label has no name), marked with user data role 0
/// set to true; IsEditObjectHandle() tells them from the host's own objects.
/// Initialise() puts the gadget into the host map module's event-handler chain,
/// ahead of the layers, so the host only creates the gadget and attaches a user;
/// a pointer or key event the gadget does not consume is passed on. Over a
/// handle the view shows the gadget's cursor, and the view's own comes back
/// when the pointer leaves or a drag ends.
///
/// Life: initialised, then AttachEditableUser() (enabled, handles shown), drags,
/// DetachEditableUser() (handles hidden but kept), Unintialise() (handles
/// destroyed). The order of callbacks during a drag is described with
/// IZoGraphicsEditableUser. GUI thread only.
class ZOGRAPHICS_EXPORT IZoGraphicsEditObject : public IZoMapEventHandler
{
public:
    IZoGraphicsEditObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoGraphicsEditObject(const IZoGraphicsEditObject&) = default;
    IZoGraphicsEditObject& operator=(const IZoGraphicsEditObject&) = default;
    /// @}
    ~IZoGraphicsEditObject() override;

    /// Binds the gadget to its module and layer and joins the host map's event chain.
    ///
    /// The module makes and destroys the handles, which live on layer. Returns
    /// false, doing nothing, for a null module. The module's creators call it, with
    /// the default layer when given none.
    virtual bool Initialise(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer) = 0; // 47
    /// Tears the gadget down and destroys its handles.
    ///
    /// Leaves the event chain, drops the user without a callback, disables the
    /// gadget, ends any drag silently and destroys every handle through the module
    /// (handles the module already destroyed are skipped). Does nothing before
    /// Initialise(). IZoGraphicsModule::DestroyGraphicsEditObject calls it.
    virtual void Unintialise() = 0;                                                     // 48: destroys the handles
    /// The module given to Initialise(); null before it and after Unintialise().
    virtual IZoGraphicsModule* GetGraphicsModule() const = 0;                           // 49
    /// Attaches the user that the gadget edits for, and enables the gadget.
    ///
    /// The user is not owned and must outlive the attachment. Any drag ends
    /// silently. The translate ball, scale box and key-point set then create their
    /// missing handles, read the user's values (GetEditorPosition,
    /// GetEditorBoundingBox, GetEditorKeyPointSet) and show the handles there; the
    /// rotation axis creates its dot hidden and places it only on SetEditorPoint()
    /// or UpdateEditor().
    /// Ignored for a null user, before Initialise(), or for the user already
    /// attached; another user replaces the first without any callback to it.
    virtual void AttachEditableUser(IZoGraphicsEditableUser* user) = 0;                 // 50: not owned
    /// Drops the user and hides the handles, which are kept for the next attach.
    /// Any drag ends without a callback and the start value is forgotten.
    virtual void DetachEditableUser() = 0;                                              // 51
    /// Whether objectId is the id of one of this gadget's handles.
    ///
    /// The scale box's frame and the rotation axis's guide line and label count
    /// as handles.
    virtual bool IsEditObjectHandle(int objectId) const = 0;                            // 52
    /// Enables or disables the gadget while a user is attached (ignored
    /// otherwise). A disabled gadget consumes no event; disabling during a drag
    /// ends it without a callback.
    virtual void SetEnabled(bool enabled) = 0;                                          // 53
    /// Whether the gadget shows. The translate ball and the rotation axis answer
    /// whether their dot is visible, the key-point set whether its handles are
    /// shown, the scale box whether it is enabled (see IsShown()).
    virtual bool IsVisible() const = 0;                                                 // 54
    /// Shows or hides the handles while a user is attached (ignored otherwise).
    /// The scale box leaves its frame alone; hiding the rotation axis also hides
    /// its guide line and label.
    virtual void SetVisible(bool visible) = 0;                                          // 55
    /// Whether the handles are shown. As IsVisible(), except that the scale box
    /// answers what SetVisible() or attaching last set.
    virtual bool IsShown() const = 0;                                                   // 56
    /// Moves the gadget's main handle to point, without a callback.
    ///
    /// point is longitude and latitude in degrees. The translate ball moves its
    /// dot; the rotation axis moves its control point (dot and label) and shows the
    /// dot. Only kind 0 is known; other kinds, other gadgets and a gadget never
    /// attached do nothing. A user that answers true from a callback places the
    /// handle with it.
    virtual void SetEditorPoint(const CVector3D& point, int kind) = 0;                  // 57
    /// Reads the user's values again and re-places the handles.
    ///
    /// Only while a user is attached, and only for the kinds each gadget knows:
    /// the translate ball (kind 0) reads its position, the rotation axis (kind 0)
    /// its control point, the scale box (kinds 0 to 7) its box, the key-point set
    /// (any kind) its points, closed flag and midpoint setting. Other kinds do
    /// nothing.
    virtual void UpdateEditor(int kind) = 0;                                            // 58: re-reads the user
    /// Adds a key-point handle; the other gadgets ignore it.
    ///
    /// While a user is attached, the key-point set adds a point handle at point
    /// (longitude, latitude in degrees) after the last point (atBack) or before the
    /// first, with its midpoint handle when those are enabled. No callback is made.
    virtual void AddKeyPoint(bool atBack, const CVector3D& point) = 0;                  // 59: key-point set only
    /// Removes a key-point handle; the other gadgets ignore it.
    ///
    /// While a user is attached, the key-point set removes the last point handle
    /// (atBack) or the first, with its midpoint handle; nothing when there are no
    /// points. No callback is made.
    virtual void RemoveKeyPoint(bool atBack) = 0;                                       // 60: key-point set only
};
