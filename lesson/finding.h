// What there is to say about a place in a problem in words: a mistake, or how something was understood.
//
//   spoken({{3, 7}, "hier ontbreekt een getal of een naam."});
//   // "Regel 3, plaats 7: hier ontbreekt een getal of een naam."
#pragma once

#include <expected>
#include <string>

#include "lesson/problem.h"

namespace tabulon::lesson {

struct Finding {
  Place place;
  std::string sentence;  // Dutch, to be read behind the place

  friend bool operator==(const Finding& left, const Finding& right) {
    return left.place.line == right.place.line && left.place.column == right.place.column &&
           left.sentence == right.sentence;
  }
};

template <class T>
using Found = std::expected<T, Finding>;

inline std::unexpected<Finding> mistake(Place place, std::string sentence) {
  return std::unexpected(Finding{place, std::move(sentence)});
}

inline std::string spoken(const Finding& finding) {
  return "Regel " + std::to_string(finding.place.line) + ", plaats " + std::to_string(finding.place.column) +
         ": " + finding.sentence;
}

}  // namespace tabulon::lesson
