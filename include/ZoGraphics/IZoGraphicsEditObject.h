#pragma once

#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/ZoCoreTypes.h>

class IZoGraphicsModule;
class IZoGraphicsMapLayer;
class IZoGraphicsEditableUser;

// An on-map edit gadget. It draws its handles with ordinary map objects on a
// layer, takes the host's view events and reports each step of a gesture to
// the attached user, never touching the edited thing itself.
class ZOGRAPHICS_EXPORT IZoGraphicsEditObject : public IZoMapEventHandler
{
public:
    IZoGraphicsEditObject() = default;
    IZoGraphicsEditObject(const IZoGraphicsEditObject&) = default;
    IZoGraphicsEditObject& operator=(const IZoGraphicsEditObject&) = default;
    ~IZoGraphicsEditObject() override;

    virtual bool Initialise(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer) = 0; // 47
    virtual void Unintialise() = 0;                                                     // 48: destroys the handles
    virtual IZoGraphicsModule* GetGraphicsModule() const = 0;                           // 49
    virtual void AttachEditableUser(IZoGraphicsEditableUser* user) = 0;                 // 50: not owned
    virtual void DetachEditableUser() = 0;                                              // 51
    virtual bool IsEditObjectHandle(int objectId) const = 0;                            // 52
    virtual void SetEnabled(bool enabled) = 0;                                          // 53
    virtual bool IsVisible() const = 0;                                                 // 54
    virtual void SetVisible(bool visible) = 0;                                          // 55
    virtual bool IsShown() const = 0;                                                   // 56
    virtual void SetEditorPoint(const CVector3D& point, int kind) = 0;                  // 57
    virtual void UpdateEditor(int kind) = 0;                                            // 58: re-reads the user
    virtual void AddKeyPoint(bool atBack, const CVector3D& point) = 0;                  // 59: key-point set only
    virtual void RemoveKeyPoint(bool atBack) = 0;                                       // 60: key-point set only
};
