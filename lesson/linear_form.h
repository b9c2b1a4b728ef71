// A sum of numbers times variables, and a number: one side of a line in a problem in words.
//
//   Names names;
//   const auto form = read_form(tokens, names);   // of "3(x + 2y) - 1/2": 3 x, 6 y and -1/2
//
// What the cells take as an expression is taken here, with one difference that a teacher expects: 1/2x is
// half an x.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lesson/finding.h"
#include "lesson/rational.h"
#include "lesson/tokens.h"

namespace tabulon::lesson {

// The variables of a problem, in the order in which they are mentioned.
class Names {
 public:
  struct Mention {
    std::string name;
    Place first;
    int times = 0;
  };

  // The number of the variable, from 0 on. A mistake for more than fit in a tableau, and for a word that has
  // a meaning of its own.
  Found<int> mention(const Token& name);
  bool contain(std::string_view name) const;
  const std::vector<Mention>& all() const { return mentions_; }

 private:
  std::vector<Mention> mentions_;
};

struct LinearForm {
  std::map<int, Rational> terms;  // by variable; one that is mentioned is there, its coefficient may be 0
  Rational constant;

  bool is_constant() const { return terms.empty(); }
  void add(const LinearForm& other, const Rational& factor);
};

// Reads tokens one after another.
class TokenReader {
 public:
  explicit TokenReader(std::span<const Token> tokens) : tokens_(tokens) {}

  const Token& next() const { return tokens_[at_]; }
  const Token& after_next() const { return tokens_[at_ + 1 < tokens_.size() ? at_ + 1 : at_]; }
  bool at_end() const { return next().kind == TokenKind::End; }
  bool at_sign(std::string_view sign) const { return next().kind == TokenKind::Sign && next().text == sign; }
  bool at_name() const { return next().kind == TokenKind::Name; }
  const Token& take() { return at_end() ? next() : tokens_[at_++]; }
  bool take_sign(std::string_view sign) { return at_sign(sign) && (take(), true); }
  std::span<const Token> rest() const { return tokens_.subspan(at_); }

 private:
  std::span<const Token> tokens_;  // the last is End
  std::size_t at_ = 0;
};

// Reads as much as is one sum.
Found<LinearForm> read_form(TokenReader& tokens, Names& names);

}  // namespace tabulon::lesson
