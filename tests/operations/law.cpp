#include "law.h"

#include <cctype>
#include <stdexcept>

namespace operations {
namespace {

class Formula {
 public:
  Formula(const std::string& text, const Size& size) : text_(text), size_(size) {}

  long value() {
    const long result = sum();
    if (at_ != text_.size()) fail();
    return result;
  }

 private:
  long sum() {
    long result = product();
    for (;;) {
      skip_blanks();
      if (take('+')) {
        result += product();
      } else if (take('-')) {
        result -= product();
      } else {
        return result;
      }
    }
  }

  long product() {
    long result = power();
    skip_blanks();
    while (starts_factor()) result *= power();
    if (!take('/')) return result;
    const long divisor = number();
    if (result % divisor != 0) fail();
    return result / divisor;
  }

  long power() {
    const long base = factor();
    if (!take('^')) return base;
    long result = 1;
    for (long i = number(); i > 0; --i) result *= base;
    return result;
  }

  long factor() {
    skip_blanks();
    if (take('n')) return size_.connections;
    if (take('p')) return size_.ports;
    if (take('r')) return size_.routes;
    if (!take('(')) return number();
    const long result = sum();
    if (!take(')')) fail();
    return result;
  }

  long number() {
    if (!is_digit()) fail();
    long result = 0;
    for (; is_digit(); ++at_) result = result * 10 + (text_[at_] - '0');
    return result;
  }

  bool is_digit() const { return std::isdigit(static_cast<unsigned char>(next())) != 0; }
  bool starts_factor() const {
    return is_digit() || next() == '(' || next() == 'n' || next() == 'p' || next() == 'r';
  }
  char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  void skip_blanks() {
    while (next() == ' ') ++at_;
  }
  bool take(char letter) {
    if (next() != letter) return false;
    ++at_;
    return true;
  }
  [[noreturn]] void fail() const { throw std::invalid_argument("no formula: " + text_); }

  const std::string& text_;
  const Size& size_;
  std::size_t at_ = 0;
};

}  // namespace

long value_of(const std::string& formula, const Size& size) {
  return Formula(formula, size).value();
}

CallCounts counts_of(const Law& law, const Size& size) {
  CallCounts counts{};
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const char* const formula = law.formulas[i];
    if (formula != nullptr) counts[i] = value_of(formula, size);
  }
  return counts;
}

}  // namespace operations
