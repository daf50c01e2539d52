#pragma once

#include "support/ModuleFixture.h"
#include "support/RecordingEditableUser.h"

// A gadget of type T made by one of the module's creators on the default
// layer, with a recording user and a view double; given back after the test.
template <class T, IZoGraphicsEditObject* (IZoGraphicsModule::*Create)(IZoGraphicsMapLayer*)>
class EditGadgetFixture : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        gadget = static_cast<T*>((module.*Create)(nullptr));
        ASSERT_NE(gadget, nullptr);
    }
    void TearDown() override
    {
        module.DestroyGraphicsEditObject(gadget);
        ModuleFixture::TearDown();
    }

    RecordingEditableUser user;
    FakeEditView view;
    T* gadget = nullptr;
};
