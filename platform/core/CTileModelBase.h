#pragma once

#include <ZoGraphics/ZoTileModel.h>

// What the tiling schemes share: the level range, the tile grid, rounding to
// integer pixels and argument checks. A scheme supplies only its projection
// onto the unit square (u to the right, v downwards, 0..1 across the world).
//
// A conversion that fails (null output, non-finite input, level out of range,
// pixel beyond the int range) returns false and leaves the outputs untouched.
class CTileModelBase : public CTileModel
{
public:
    static constexpr int kTileSize = 256;
    static constexpr int kMinLevel = 0;
    static constexpr int kMaxLevel = 21;

    CTileModelBase(const CTileModelBase&) = delete;
    CTileModelBase& operator=(const CTileModelBase&) = delete;

    E_TILE_MODEL GetKind() const override;
    int GetEPSG() const override;
    int GetTileSize() const override;
    int GetMinLevel() const override;
    int GetMaxLevel() const override;
    int GetTileCountX(int level) const override;
    int GetTileCountY(int level) const override;
    double GetWorldPixelWidth(int level) const override;
    double GetWorldPixelHeight(int level) const override;
    double GetResolution(int level) const override;
    EXTENT GetGeoExtent() const override;
    bool IsValidLevel(int level) const override;
    bool GetTileOfGeo(int* col, int* row, int level, double x, double y) const override;
    EXTENT GetTileGeoExtent(int col, int row, int level) const override;
    bool ConvertGeoToPixel(int* px, int* py, int level, double x, double y) const override;
    bool ConvertGeoToPixel(double* px, double* py, int level, double x, double y) const override;
    bool ConvertPixelToGeo(double* x, double* y, int level, int px, int py) const override;
    bool ConvertPixelToGeo(double* x, double* y, int level, double px, double py) const override;

protected:
    struct Scheme
    {
        E_TILE_MODEL kind;
        int epsg;
        int tilesAcrossAtLevel0;     // tiles down at level 0 is always one
        double worldWidthInMapUnits; // for the resolution
        EXTENT geoExtent;
    };

    explicit CTileModelBase(const Scheme& scheme);
    ~CTileModelBase() override;

    virtual void GeoToUnit(double x, double y, double* u, double* v) const = 0;
    virtual void UnitToGeo(double u, double v, double* x, double* y) const = 0;

private:
    bool GeoToWorld(int level, double x, double y, double* px, double* py) const;
    bool WorldToGeo(int level, double px, double py, double* x, double* y) const;

    Scheme m_scheme;
};
