#pragma once

#include "object/ZoLogText.h"

#include <ZoGraphics/IZoGraphicsEditObject.h>
#include <ZoGraphics/IZoGraphicsModule.h>

#include <memory>

// Makes a gadget of type T for a module's creator: on the given layer or the
// module's default one; null and the creator's line when it cannot start.
template <class T>
IZoGraphicsEditObject* ZoCreateEditObject(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const char* creator)
{
    auto gadget = std::make_unique<T>();
    if (!module || !gadget->Initialise(module, layer ? layer : module->GetDeafultGraphicsLayer()))
    {
        ZoLogWarnAt("CZoGraphicsModule", creator) << ZoLogReason::kInitialiseFailed;
        return nullptr;
    }
    return gadget.release();
}
