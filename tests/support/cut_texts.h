// Texts and the tokens they are cut into: the same for the tokeniser and for what it is made of.

#pragma once

#include <string>
#include <vector>

struct CutText
{
    std::string text, separator;
    std::vector<std::string> tokens;
};

/// What a separator of one character makes of a text.
inline const std::vector<CutText> cutsAtOneCharacter = {
    {"/a/b", "/", {"", "a", "b"}},
    {"/a/b/", "/", {"", "a", "b"}},
    {"a/b//", "/", {"a", "b", ""}},
    {"one two", " ", {"one", "two"}},
    {"one two ", " ", {"one", "two"}},
    {"one  two", " ", {"one", "", "two"}},
    {" ", " ", {""}},
    {"  ", " ", {"", ""}},
    {"whole", " ", {"whole"}},
    {"a\tb c\t", "\t", {"a", "b c"}},
    {"\xd1\x81;\xe9", ";", {"\xd1\x81", "\xe9"}},
    {std::string("a\0b;c\0", 6), ";", {std::string("a\0b", 3), std::string("c\0", 2)}},
};
