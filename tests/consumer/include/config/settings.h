// The consumer's settings, also named like a header of the library.

#pragma once

struct ConsumerSettings
{
    const char* observatory = "railway";
};
