#pragma once

#include <ZoGraphics/IZoLineStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

// Several polylines in one object with one line style. Bad line or point
// indices are logged and change nothing.
class ZOGRAPHICS_EXPORT IZoMultiLineMapObject : public IZoLineStyleGraphicsMapObject
{
public:
    IZoMultiLineMapObject() = default;
    IZoMultiLineMapObject(const IZoMultiLineMapObject&) = default;
    IZoMultiLineMapObject& operator=(const IZoMultiLineMapObject&) = default;
    ~IZoMultiLineMapObject() override;

    virtual void SetClosed(bool closed) = 0;                                                    // 71
    virtual bool IsClosed() const = 0;                                                          // 72
    virtual void SetData(const std::vector<std::vector<CVector3D>>& lines) = 0;                 // 73
    virtual std::int64_t GetLineNumber() const = 0;                                             // 74
    virtual bool SetLineData(int lineIndex, const std::vector<CVector3D>& line) = 0;            // 75
    // 76: the new line's index, or -1 when the line is empty and was refused.
    virtual int AppendLine(const std::vector<CVector3D>& line) = 0;
    virtual void InsertLine(int lineIndex, const std::vector<CVector3D>& line) = 0;             // 77
    virtual void RemoveLine(int lineIndex) = 0;                                                 // 78
    virtual void PopLine() = 0;                                                                 // 79
    virtual std::vector<CVector3D> GetLineData(int lineIndex) const = 0;                        // 80
    virtual void Cleanup(int lineIndex) = 0;                                                    // 81: empties one line
    virtual void Clear() = 0;                                                                   // 82
    virtual std::int64_t GetPointNumber(int lineIndex) const = 0;                               // 83
    virtual void ModifyData(int lineIndex, int pointIndex, const CVector3D& point) = 0;         // 84
    virtual CVector3D At(int lineIndex, int pointIndex) const = 0;                              // 85
    virtual void AppendPoint(int lineIndex, const CVector3D& point) = 0;                        // 86
    virtual void InsertPoint(int lineIndex, int pointIndex, const CVector3D& point) = 0;        // 87
    virtual void RemovePoint(int lineIndex, int pointIndex) = 0;                                // 88
    virtual CVector3D PopPoint(int lineIndex) = 0;                                              // 89
    virtual void SetPosition(const CVector3D& anchor) = 0;                                      // 90
};
