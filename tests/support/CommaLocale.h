#pragma once

#include <clocale>
#include <locale>
#include <string>

/// For its life the program's locale has a decimal comma and points between the thousands, as
/// in many European countries.
class CommaLocale {
public:
  CommaLocale() {
    std::locale::global(std::locale(std::locale::classic(), new Punctuation));
    // Where the system has such a locale, C's functions follow it as well.
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
      if (std::setlocale(LC_ALL, name)) break;
    }
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() {
    std::locale::global(std::locale::classic());
    std::setlocale(LC_ALL, "C");
  }

private:
  class Punctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
};
