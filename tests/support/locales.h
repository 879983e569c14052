// Locales: the tests put the process into one, as a program that uses the library may, and compute what they
// compare with in another.

#pragma once

#include <locale>
#include <string>

#include <locale.h>

/// The locales whose numbers look otherwise than those of the files, or whose letters have other capitals.
inline constexpr const char* otherLocales[] = {"de_DE.UTF-8", "tr_TR.UTF-8", "ru_RU.UTF-8"};

/// Puts the process into a locale until the end of the block, as a program that calls std::locale::global.
/// The words of the system's errors stay English, as tests quote them. Throws std::runtime_error for a locale
/// that the system does not have.
class ProcessLocale
{
public:
    explicit ProcessLocale(const std::string& name);
    ~ProcessLocale();
    ProcessLocale(const ProcessLocale&) = delete;
    ProcessLocale& operator=(const ProcessLocale&) = delete;

private:
    std::string numericBefore;
    std::locale before;
};

/// What the C library prints and reads until the end of the block is that of the "C" locale, whatever the
/// process is in.
class ReferenceLocale
{
public:
    ReferenceLocale();
    ~ReferenceLocale();
    ReferenceLocale(const ReferenceLocale&) = delete;
    ReferenceLocale& operator=(const ReferenceLocale&) = delete;

private:
    locale_t before;
};

/// The number at the front of a text, as the C library reads it in the "C" locale.
double readInC(const std::string& text);

/// A number as the C library prints it in the "C" locale, in a form such as "%.*f".
std::string printInC(const char* form, int precision, double value);
