#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

// Tiling schemes of the core library. Only the two below have a tile model;
// ITileModel::GetTileModel returns null for every other value.
enum E_TILE_MODEL
{
    E_TILE_MODEL_NONE = 0,
    E_TILE_MODEL_WEB_MERCATOR = 1, // EPSG:3857, one 256-pixel tile at level 0
    E_TILE_MODEL_GEODETIC = 2,     // EPSG:4326, two 256-pixel tiles across at level 0
};

// A tiling scheme: geographic longitude/latitude to world pixels at a level.
// World pixels have their origin at the top-left corner of the world with y
// growing downwards. Levels run from GetMinLevel() to GetMaxLevel().
// The geographic-to-pixel conversion used by the graphics library sits at
// virtual slot 31; the slots before it are the model's descriptive queries and
// reserved operations that keep that numbering.
class ZOGRAPHICS_EXPORT CTileModel
{
public:
    virtual ~CTileModel();                                             // 0

    virtual E_TILE_MODEL GetKind() const = 0;                          // 1
    virtual int GetEPSG() const = 0;                                   // 2
    virtual int GetTileSize() const = 0;                               // 3
    virtual int GetMinLevel() const = 0;                               // 4
    virtual int GetMaxLevel() const = 0;                               // 5
    virtual int GetTileCountX(int level) const = 0;                    // 6
    virtual int GetTileCountY(int level) const = 0;                    // 7
    virtual double GetWorldPixelWidth(int level) const = 0;            // 8
    virtual double GetWorldPixelHeight(int level) const = 0;           // 9
    virtual double GetResolution(int level) const = 0;                 // 10: map units per pixel
    virtual EXTENT GetGeoExtent() const = 0;                           // 11: valid lon/lat range
    virtual bool IsValidLevel(int level) const = 0;                    // 12
    virtual bool GetTileOfGeo(int* col, int* row, int level, double x, double y) const = 0; // 13
    virtual EXTENT GetTileGeoExtent(int col, int row, int level) const = 0;                  // 14
    virtual int ReservedSlot15() const;
    virtual int ReservedSlot16() const;
    virtual int ReservedSlot17() const;
    virtual int ReservedSlot18() const;
    virtual int ReservedSlot19() const;
    virtual int ReservedSlot20() const;
    virtual int ReservedSlot21() const;
    virtual int ReservedSlot22() const;
    virtual int ReservedSlot23() const;
    virtual int ReservedSlot24() const;
    virtual int ReservedSlot25() const;
    virtual int ReservedSlot26() const;
    virtual int ReservedSlot27() const;
    virtual int ReservedSlot28() const;
    virtual int ReservedSlot29() const;
    virtual int ReservedSlot30() const;
    // 31: geographic point to integer world pixels (rounded to nearest) at a level.
    virtual bool ConvertGeoToPixel(int* px, int* py, int level, double x, double y) const = 0;
    // 32: the same, unrounded.
    virtual bool ConvertGeoToPixel(double* px, double* py, int level, double x, double y) const = 0;
    // 33: integer world pixels back to a geographic point.
    virtual bool ConvertPixelToGeo(double* x, double* y, int level, int px, int py) const = 0;
    // 34: fractional world pixels back to a geographic point.
    virtual bool ConvertPixelToGeo(double* x, double* y, int level, double px, double py) const = 0;
};

class ZOGRAPHICS_EXPORT ITileModel
{
public:
    // The process-wide tile model of a kind, or null when the kind has none.
    // The flag is kept for the callers that pass it; the models are shared
    // singletons either way and must not be deleted.
    static CTileModel* GetTileModel(E_TILE_MODEL kind, bool shared = true);
    static CTileModel* GetTileModel(int kind, bool shared = true)
    {
        return GetTileModel(static_cast<E_TILE_MODEL>(kind), shared);
    }
};
