#pragma once

#include <ZoGraphics/IZoMapObject.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <QColor>
#include <QFont>
#include <QVariant>

class QPainter;
class QGraphicsItem;
class CTileModel;
class CSpatialReference;
class IZoGraphicsMapLayer;

// What every graphic map object shares (slots 0 to 58).
class ZOGRAPHICS_EXPORT IZoGraphicsMapObject : public IZoMapObject
{
public:
    IZoGraphicsMapObject() = default;
    IZoGraphicsMapObject(const IZoGraphicsMapObject&) = default;
    IZoGraphicsMapObject& operator=(const IZoGraphicsMapObject&) = default;
    ~IZoGraphicsMapObject() override;

    virtual IZoMapModule* GetMapModule() const = 0;                          // 11
    virtual IZoGraphicsMapLayer* GetGraphicsMapLayer() const = 0;            // 12
    virtual void SetName(const std::string& name) = 0;                       // 13
    virtual void SetProperty(const std::string& key, const QVariant& value) = 0; // 14
    virtual QVariant GetProperty(const std::string& key) const = 0;          // 15
    virtual void SetUserData(int role, const QVariant& value) = 0;           // 16
    virtual QVariant GetUserData(int role) const = 0;                        // 17
    virtual void SetNameVisible(bool visible) = 0;                           // 18
    virtual bool IsNameVisible() const = 0;                                  // 19
    virtual void SetNameFont(const QFont& font) = 0;                         // 20
    virtual QFont GetNameFont() const = 0;                                   // 21
    virtual void SetNameColor(const QColor& color) = 0;                      // 22
    virtual QColor GetNameColor() const = 0;                                 // 23
    virtual void SetNameOutlineColor(const QColor& color) = 0;               // 24
    virtual QColor GetNameOutlineColor() const = 0;                          // 25
    virtual void SetNameOutlineWidth(double width) = 0;                      // 26
    virtual double GetNameOutlineWidth() const = 0;                          // 27
    virtual void SetNameOffset(float offset) = 0;                            // 28
    virtual float GetNameOffset() const = 0;                                 // 29
    virtual void SetNameMinLodLevel(int level) = 0;                          // 30
    virtual int GetNameMinLodLevel() const = 0;                              // 31
    virtual void SetNameMaxLodLevel(int level) = 0;                          // 32
    virtual int GetNameMaxLodLevel() const = 0;                              // 33
    virtual void SetZValue(int z) = 0;                                       // 34
    virtual int GetZValue() const = 0;                                       // 35
    virtual void SetInteractive(bool interactive) = 0;                       // 36
    virtual bool IsInteractive() const = 0;                                  // 37
    virtual void SetVisible(bool visible) = 0;                               // 38
    virtual bool IsVisible() const = 0;                                      // 39
    virtual void SetAlwaysRebuild(bool always) = 0;                          // 40
    virtual bool IsAlwaysRebuild() const = 0;                                // 41
    virtual bool IsRotatable() const = 0;                                    // 42
    virtual CAABB GetBoundingBox() const = 0;                                // 43: geographic
    virtual void SetRebuildThreshold(double threshold) = 0;                  // 44
    virtual double GetRebuildThreshold() const = 0;                          // 45
    virtual void SetEditAngle(double degrees) = 0;                           // 46
    virtual double GetEditAngle() const = 0;                                 // 47
    virtual void UpdateVisibility(int lod) = 0;                              // 48
    virtual void SetResolution(double scale) = 0;                            // 49
    virtual void UpdatePosition() = 0;                                       // 50
    // 51: draws the object into a foreign painter; the converter is a tile
    // model, the level the tile level, the target an optional output reference.
    virtual void PaintOnCanvas(QPainter* painter, CTileModel* converter, int level,
                               CSpatialReference* target) = 0;
    virtual QGraphicsItem* GetQtItem() const = 0;                            // 52
    virtual bool IsInScene() const = 0;                                      // 53
    virtual void AddToScene() = 0;                                           // 54
    virtual void RemoveFromScene() = 0;                                      // 55
    virtual void Rebuild(double scale) = 0;                                  // 56
    virtual void Dirty() = 0;                                                // 57
    virtual void Update() = 0;                                               // 58
};
