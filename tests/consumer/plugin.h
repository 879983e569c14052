// What the plugin of the consumer offers, by names that a program asks for when it runs.

#pragma once

/// Prints the first object of a night and its marks.
extern "C" void describeNight(const char* path);

/// Throws the library's exception: there is no such folder.
extern "C" void writeNowhere();
