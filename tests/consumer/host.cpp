// Loads the plugin, which has the static library inside, while it uses the shared one itself.

#include "plugin.h"

#include <tavelin/tavelin.h>

#include <cstdio>

#include <dlfcn.h>

int main(int, char** arguments)
{
    void* plugin = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (plugin == nullptr) {
        std::printf("%s\n", dlerror());
        return 1;
    }
    reinterpret_cast<decltype(&describeNight)>(dlsym(plugin, "describeNight"))(arguments[2]);
    std::printf("host: %zu marks\n", tavelinUtils::plMEATrack(arguments[2], "").front().Marks.size());
    try {
        reinterpret_cast<decltype(&writeNowhere)>(dlsym(plugin, "writeNowhere"))();
    } catch (const tavelinUtils::TavelinException& failure) {
        std::printf("host: code %d of the plugin\n", failure.getCode());
    }
    return dlclose(plugin);
}
