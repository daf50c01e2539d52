#include <ZoGraphics/IZoGraphicsModule.h>

#include <atomic>

namespace
{
// Set once by the host during start-up; an atomic keeps late readers on other
// threads well-defined.
std::atomic<IZoGraphicsModule*> g_globalModule{nullptr};
} // namespace

void SetGlobalZoGraphicsModule(IZoGraphicsModule* module)
{
    g_globalModule.store(module);
}

IZoGraphicsModule* GetGlobalZoGraphicsModule()
{
    return g_globalModule.load();
}

IZoGraphicsModule* GetSlaveZoGraphicsModule(const std::string&)
{
    return nullptr;
}
