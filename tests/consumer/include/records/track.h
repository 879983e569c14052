// A railway's track: a header of the consumer that has the name of one of the library's.

#pragma once

struct RailwayTrack
{
    int number = 1;
};
