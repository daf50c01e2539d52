#pragma once

#include "support/FakeMapModule.h"
#include "support/LogCapture.h"

#include <ZoGraphics/ZoGraphics.h>

#include <gtest/gtest.h>

// A module initialised against a FakeMapModule, torn down after each test.
class ModuleFixture : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(module.Initialise("test", &map)); }
    void TearDown() override
    {
        if (!m_unintialised)
            module.Unintialise();
    }
    void UnintialiseNow()
    {
        module.Unintialise();
        m_unintialised = true;
    }
    IZoGraphicsMapLayer* DefaultLayer() { return module.GetDeafultGraphicsLayer(); }
    FakeMapModule map;
    CZoGraphicsModule module;
    LogCapture log;

private:
    bool m_unintialised = false;
};
