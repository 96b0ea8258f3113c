#pragma once

#include <clocale>
#include <locale>
#include <optional>
#include <string>

#include "support/EnvironmentVariable.h"

namespace vantix::test {

/// Digits grouped by points, a comma before the fraction.
class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// While it exists, C++'s streams have a decimal comma.
class CppCommaLocale {
public:
    CppCommaLocale() : m_before(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))) {}
    ~CppCommaLocale() { std::locale::global(m_before); }
    CppCommaLocale(const CppCommaLocale&) = delete;
    CppCommaLocale& operator=(const CppCommaLocale&) = delete;

private:
    std::locale m_before;
};

/// While it exists, C's conversions have a decimal comma, if there is such a locale: the system's, or that which the
/// build made in `folder`.
class CCommaLocale {
public:
    explicit CCommaLocale(const char* folder = nullptr) : m_before(std::setlocale(LC_ALL, nullptr)) {
        if (folder != nullptr) {
            m_path.emplace("LOCPATH", folder);
        }
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8", "nl_NL.UTF-8",
                                 "de-DE", "German_Germany.1252"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',') {
                m_isSet = true;
                return;
            }
        }
    }
    ~CCommaLocale() { std::setlocale(LC_ALL, m_before.c_str()); }
    CCommaLocale(const CCommaLocale&) = delete;
    CCommaLocale& operator=(const CCommaLocale&) = delete;

    bool IsSet() const { return m_isSet; }

private:
    std::string m_before;
    std::optional<EnvironmentVariable> m_path;
    bool m_isSet = false;
};

}  // namespace vantix::test
