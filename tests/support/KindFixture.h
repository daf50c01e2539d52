#pragma once

#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

// An object of one kind on a layer of its own, made before each test with
// the log cleared.
template <class Kind>
class KindFixture : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("layer");
        object = Kind::Create(module, "object", layer);
        ASSERT_NE(object, nullptr);
        log.Clear();
    }
    // The concrete class, for the internals a test looks into.
    typename Kind::Impl* Impl() const { return static_cast<typename Kind::Impl*>(object); }

    IZoGraphicsMapLayer* layer = nullptr;
    typename Kind::Interface* object = nullptr;
};
