#include "support/locales.h"

#include "support/places.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

// Locales that the system need not have were made beside the tests.
const bool madeLocalesAreFound = setenv("LOCPATH", localesFolder(), 1) == 0;

locale_t referenceLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

std::locale withEnglishErrors(const std::string& name)
{
    return {std::locale(name), std::locale::classic(), std::locale::messages};
}

// Puts every test into the locale that the environment names.
class LocaleOfEachTest : public testing::EmptyTestEventListener
{
public:
    explicit LocaleOfEachTest(std::string wanted) : name(std::move(wanted))
    {
    }

private:
    void OnTestStart(const testing::TestInfo& /*test*/) override
    {
        locale.emplace(name);
    }
    void OnTestEnd(const testing::TestInfo& /*test*/) override
    {
        locale.reset();
    }

    std::string name;
    std::optional<ProcessLocale> locale{};
};

bool listenForLocale()
{
    const char* const name = std::getenv("VOMAR_TEST_LOCALE");
    if (name != nullptr) {
        auto listener = std::make_unique<LocaleOfEachTest>(name);
        testing::UnitTest::GetInstance()->listeners().Append(listener.release());
    }
    return name != nullptr;
}

const bool listens = listenForLocale();

} // namespace

ProcessLocale::ProcessLocale(const std::string& name)
    : numericBefore(std::setlocale(LC_NUMERIC, nullptr)), before(std::locale::global(withEnglishErrors(name)))
{
}

ProcessLocale::~ProcessLocale()
{
    std::locale::global(before);
    std::setlocale(LC_NUMERIC, numericBefore.c_str()); // readers of MEA files set it, and nothing else
}

ReferenceLocale::ReferenceLocale() : before(uselocale(referenceLocale()))
{
}

ReferenceLocale::~ReferenceLocale()
{
    uselocale(before);
}

double readInC(const std::string& text)
{
    const ReferenceLocale reference;
    return std::strtod(text.c_str(), nullptr);
}

std::string printInC(const char* form, int precision, double value)
{
    const ReferenceLocale reference;
    char text[512];
    const int size = std::snprintf(text, sizeof text, form, precision, value);
    return {text, static_cast<std::size_t>(size)};
}
