#pragma once

#include <ZoGraphics/IZoLineStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

/// Several polylines in one object with one line style. Bad line or point
/// indices are logged and change nothing.
///
/// Each line is an ordered list of `CVector3D` with x = longitude and
/// y = latitude in degrees; z is kept but not drawn. Every line is drawn as the
/// polyline draws its points, and gets its own arrow when arrows are shown.
/// Made by IZoGraphicsModule::CreateMultiLineMapObject, which owns it.
///
/// A bad index logs the operation's text quoted below, followed by the failing
/// index as a decimal number, and a getter returns an empty or zero value. The
/// texts name "CZoMultiPolygonMapObject", and some of them another
/// operation, on purpose: hosts match on them. A point with a NaN or infinite coordinate is
/// refused whole with "[CZoMultiLineMapObject::SetData] 坐标无效" (naming the
/// operation).
///
/// The anchor, which SetPosition moves, is the first point of the first
/// non-empty line after SetData, or the first point added to an object without
/// points; (0,0,0) once the object holds no point.
class ZOGRAPHICS_EXPORT IZoMultiLineMapObject : public IZoLineStyleGraphicsMapObject
{
public:
    IZoMultiLineMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMultiLineMapObject(const IZoMultiLineMapObject&) = default;
    IZoMultiLineMapObject& operator=(const IZoMultiLineMapObject&) = default;
    /// @}
    ~IZoMultiLineMapObject() override;

    /// Closes every line back to its first point when true (default false) and redraws.
    virtual void SetClosed(bool closed) = 0;                                                    // 71
    /// Whether the lines are drawn back to their first points.
    virtual bool IsClosed() const = 0;                                                          // 72
    /// Replaces all lines; the first point of the first non-empty line becomes the anchor.
    virtual void SetData(const std::vector<std::vector<CVector3D>>& lines) = 0;                 // 73
    /// The number of lines, empty ones included.
    virtual std::int64_t GetLineNumber() const = 0;                                             // 74
    /// Replaces the line at lineIndex (0 to GetLineNumber() - 1); false, and no
    /// change, on a bad index, which logs "[CZoMultiPolygonMapObject::SetLineData] Index越界: ",
    /// or on a non-finite point.
    virtual bool SetLineData(int lineIndex, const std::vector<CVector3D>& line) = 0;            // 75
    /// Appends a line and returns its index. An empty line is refused, silently,
    /// with -1; so is a line with a non-finite point (logged).
    // 76: the new line's index, or -1 when the line is empty and was refused.
    virtual int AppendLine(const std::vector<CVector3D>& line) = 0;
    /// Inserts a line before lineIndex (0 to GetLineNumber(), which appends); an
    /// empty line is accepted. A bad index logs "[CZoMultiPolygonMapObject::InsertLine] Index越界: ".
    virtual void InsertLine(int lineIndex, const std::vector<CVector3D>& line) = 0;             // 77
    /// Removes the line at lineIndex (0 to GetLineNumber() - 1). A bad index logs
    /// "[CZoMultiPolygonMapObject::RemoveLine] Index越界: ".
    virtual void RemoveLine(int lineIndex) = 0;                                                 // 78
    /// Removes the last line; does nothing, silently, when there is none.
    virtual void PopLine() = 0;                                                                 // 79
    /// A copy of the line at lineIndex; on a bad index an empty list, logged as
    /// "[CZoMultiPolygonMapObject::GetLineData] Index越界: ".
    virtual std::vector<CVector3D> GetLineData(int lineIndex) const = 0;                        // 80
    /// Removes every point of the line at lineIndex but keeps the line. A bad
    /// index does nothing and, unlike the other operations, logs nothing.
    virtual void Cleanup(int lineIndex) = 0;                                                    // 81: empties one line
    /// Removes every line.
    virtual void Clear() = 0;                                                                   // 82
    /// The number of points of the line at lineIndex; on a bad index 0, logged as
    /// "[CZoMultiPolygonMapObject::GetPointNumber] Index越界: ".
    virtual std::int64_t GetPointNumber(int lineIndex) const = 0;                               // 83
    /// Replaces point pointIndex of line lineIndex; the anchor stays. A bad index logs
    /// "[CZoMultiPolygonMapObject::ModifyData] nLineIndex越界: " or
    /// "[CZoMultiPolygonMapObject::ModifyData] nPointIndex越界: ".
    virtual void ModifyData(int lineIndex, int pointIndex, const CVector3D& point) = 0;         // 84
    /// Point pointIndex of line lineIndex; on a bad index (0,0,0), logged as
    /// "[CZoMultiPolygonMapObject::At] nLineIndex越界: " or
    /// "[CZoMultiPolygonMapObject::At] nPointIndex越界: ".
    virtual CVector3D At(int lineIndex, int pointIndex) const = 0;                              // 85
    /// Appends a point to the line at lineIndex. A bad index logs
    /// "[CZoMultiPolygonMapObject::At] nLineIndex越界: ".
    virtual void AppendPoint(int lineIndex, const CVector3D& point) = 0;                        // 86
    /// Inserts a point before pointIndex (0 to the line's point count, which
    /// appends) in the line at lineIndex. A bad line logs "[CZoMultiPolygonMapObject::At] InsertPoint越界: ",
    /// a bad point "[CZoMultiPolygonMapObject::At] nPointIndex越界: ".
    virtual void InsertPoint(int lineIndex, int pointIndex, const CVector3D& point) = 0;        // 87
    /// Removes point pointIndex of line lineIndex. A bad index logs
    /// "[CZoMultiPolygonMapObject::RemovePoint] nLineIndex越界: " or
    /// "[CZoMultiPolygonMapObject::RemovePoint] nPointIndex越界: ".
    virtual void RemovePoint(int lineIndex, int pointIndex) = 0;                                // 88
    /// Removes and returns the last point of the line at lineIndex; (0,0,0) when
    /// the index is bad ("[CZoMultiPolygonMapObject::PopPoint] nLineIndex越界: ")
    /// or the line is empty ("[RemovePoint::PopPoint] nLineIndex对应点集为空",
    /// without an index).
    virtual CVector3D PopPoint(int lineIndex) = 0;                                              // 89
    /// Moves every point of every line by the same geographic difference so that
    /// the anchor lands on anchor. Without points only the anchor is set.
    virtual void SetPosition(const CVector3D& anchor) = 0;                                      // 90
};
