#include <ZoGraphics/ZoTileModel.h>

#include "CGeodeticTileModel.h"
#include "CWebMercatorTileModel.h"

CTileModel::~CTileModel() = default;

// Reserved operations keep later slots in place; they do nothing.
#define ZO_RESERVED_TILE_MODEL_SLOT(n) \
    int CTileModel::ReservedSlot##n() const { return 0; }
ZO_RESERVED_TILE_MODEL_SLOT(15)
ZO_RESERVED_TILE_MODEL_SLOT(16)
ZO_RESERVED_TILE_MODEL_SLOT(17)
ZO_RESERVED_TILE_MODEL_SLOT(18)
ZO_RESERVED_TILE_MODEL_SLOT(19)
ZO_RESERVED_TILE_MODEL_SLOT(20)
ZO_RESERVED_TILE_MODEL_SLOT(21)
ZO_RESERVED_TILE_MODEL_SLOT(22)
ZO_RESERVED_TILE_MODEL_SLOT(23)
ZO_RESERVED_TILE_MODEL_SLOT(24)
ZO_RESERVED_TILE_MODEL_SLOT(25)
ZO_RESERVED_TILE_MODEL_SLOT(26)
ZO_RESERVED_TILE_MODEL_SLOT(27)
ZO_RESERVED_TILE_MODEL_SLOT(28)
ZO_RESERVED_TILE_MODEL_SLOT(29)
ZO_RESERVED_TILE_MODEL_SLOT(30)
#undef ZO_RESERVED_TILE_MODEL_SLOT

CTileModel* ITileModel::GetTileModel(E_TILE_MODEL kind, bool /*shared*/)
{
    // Stateless and immutable, so one instance per kind serves every caller
    // and thread.
    static CWebMercatorTileModel webMercator;
    static CGeodeticTileModel geodetic;
    switch (kind)
    {
    case E_TILE_MODEL_WEB_MERCATOR:
        return &webMercator;
    case E_TILE_MODEL_GEODETIC:
        return &geodetic;
    default:
        return nullptr;
    }
}
