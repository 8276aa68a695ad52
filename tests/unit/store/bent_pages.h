// The pages of a store's file, where a test can bend them.
#ifndef TESTS_STORE_BENT_PAGES_H
#define TESTS_STORE_BENT_PAGES_H

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <string>

#include "store_bench.h"

namespace store_tests {

// Reads the file when it is made, and writes it on write_back().
class Pages {
 public:
  explicit Pages(const std::string& path) : path_(path), bytes_(content_of(path)) {}

  void write_back() {
    put(kPageCount, bytes_.size() / kSize, 4);
    write_file(path_, bytes_);
  }

  std::size_t root_of(const std::string& name) const {
    sqlite3* connection = nullptr;
    sqlite3_stmt* found = nullptr;
    EXPECT_EQ(sqlite3_open(path_.c_str(), &connection), SQLITE_OK);
    const std::string sql = "SELECT rootpage FROM sqlite_master WHERE name = '" + name + "'";
    EXPECT_EQ(sqlite3_prepare_v2(connection, sql.c_str(), -1, &found, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_step(found), SQLITE_ROW);
    const auto root = static_cast<std::size_t>(sqlite3_column_int64(found, 0));
    sqlite3_finalize(found);
    sqlite3_close(connection);
    return root;
  }

  std::string page(std::size_t number) const { return bytes_.substr((number - 1) * kSize, kSize); }
  void set_page(std::size_t number, const std::string& page) {
    bytes_.replace((number - 1) * kSize, kSize, page);
  }
  std::size_t append(const std::string& page) {
    bytes_ += page;
    return bytes_.size() / kSize;
  }

  // A page above others: its cells, and all that is behind them, are the same child.
  static std::string inner_page(char kind, std::size_t child, const std::string& key) {
    constexpr std::size_t kCells = 50;
    constexpr std::size_t kHead = 12;
    const std::string cell = number(child, 4) + key;
    const std::size_t begin = kSize - cell.size();
    std::string page = kind + number(0, 2) + number(kCells, 2) + number(begin, 2) + '\0';
    page += number(child, 4);
    for (std::size_t i = 0; i < kCells; ++i) page += number(begin, 2);
    EXPECT_EQ(page.size(), kHead + 2 * kCells);
    page.resize(begin);
    return page + cell;
  }

  // Puts so many levels over a page that a walk through them does not end. Returns the topmost.
  std::size_t pile_on(std::size_t child, char kind, const std::string& key) {
    constexpr int kLevels = 15;
    for (int level = 0; level < kLevels; ++level) child = append(inner_page(kind, child, key));
    return child;
  }

  void make_endless(std::size_t root) {
    const std::string old = page(root);
    const bool is_index = old[0] == kIndexLeaf || old[0] == kInnerIndex;
    const char kind = is_index ? kInnerIndex : kInnerTable;
    const std::string key = is_index ? first_key(old) : std::string(1, '\1');
    const std::size_t top = pile_on(append(old), kind, key);
    set_page(root, inner_page(kind, top, key));
  }

  // The schema stands in the first page, behind the database's head.
  void make_schema_endless() {
    const std::string first = page(1);
    constexpr std::size_t kHead = 20;  // with the places of six rows
    const std::string leaf = first.substr(kDatabaseHead, kHead) + std::string(kDatabaseHead, '\0') +
                             first.substr(kDatabaseHead + kHead);
    const std::size_t whole = append(leaf);
    std::string one = leaf;  // only the row of an index that needs no statement
    one.replace(3, 2, number(1, 2));
    one.replace(8, 2, leaf.substr(10, 2));
    const std::size_t top = pile_on(append(one), kInnerTable, std::string(1, '\7'));
    std::string head = kInnerTable + number(0, 2) + number(1, 2) + number(kSize - 5, 2) + '\0';
    head += number(top, 4) + number(kSize - 5, 2);
    std::string page = first.substr(0, kDatabaseHead) + head;
    page.resize(kSize - 5);
    set_page(1, page + number(whole, 4) + '\6');
  }

  // Lets all rows of a table, which stands in one page, end in what the first one ends in; then the
  // file needs no page behind that.
  void share_long_rows(std::size_t root) {
    const std::string leaf = page(root);
    std::string shared = leaf;
    std::size_t first = 0;
    for (std::size_t row = 0; row < read(leaf, 3, 2); ++row) {
      const std::size_t place = rest_of_row(leaf, read(leaf, 8 + 2 * row, 2));
      if (first == 0) first = read(leaf, place, 4);
      shared.replace(place, 4, number(first, 4));
    }
    set_page(root, shared);
    std::size_t last = first;
    for (std::size_t next = first; next != 0; next = read(page(next), 0, 4)) {
      last = std::max(last, next);
    }
    bytes_.resize(last * kSize);
  }

  void exchange_first_cells(std::size_t root) {
    std::string bent = page(root);
    const std::size_t pointers = bent[0] == kIndexLeaf ? 8 : 12;
    const std::string first = bent.substr(pointers, 2);
    bent.replace(pointers, 2, bent.substr(pointers + 2, 2));
    bent.replace(pointers + 2, 2, first);
    set_page(root, bent);
  }

 private:
  static constexpr std::size_t kSize = 4096;
  static constexpr std::size_t kPageCount = 28;
  static constexpr std::size_t kDatabaseHead = 100;
  static constexpr char kInnerIndex = 2;
  static constexpr char kInnerTable = 5;
  static constexpr char kIndexLeaf = 10;

  static std::size_t read(const std::string& page, std::size_t at, int size) {
    std::size_t number = 0;
    for (int byte = 0; byte < size; ++byte) {
      number = number * 256 + static_cast<unsigned char>(page[at + static_cast<std::size_t>(byte)]);
    }
    return number;
  }

  // Where a page says which other one a long row goes on in.
  static std::size_t rest_of_row(const std::string& page, std::size_t cell) {
    constexpr std::size_t kInOtherPages = kSize - 4;
    constexpr std::size_t kLeast = (kSize - 12) * 32 / 255 - 23;
    constexpr std::size_t kMost = kSize - 35;
    std::size_t length = 0;
    for (bool more = true; more; ++cell) {
      length = length * 128 + read(page, cell, 1) % 128;
      more = read(page, cell, 1) >= 128;
    }
    while (read(page, cell++, 1) >= 128) {  // the row's number
    }
    const std::size_t here = kLeast + (length - kLeast) % kInOtherPages;
    return cell + (here <= kMost ? here : kLeast);
  }

  static std::string number(std::size_t number, int size) {
    std::string bytes;
    for (int byte = size - 1; byte >= 0; --byte) {
      bytes += static_cast<char>((number >> (8U * static_cast<unsigned>(byte))) & 0xFFU);
    }
    return bytes;
  }
  void put(std::size_t at, std::size_t value, int size) {
    bytes_.replace(at, static_cast<std::size_t>(size), number(value, size));
  }

  // Length and record of a page's first cell; the record is shorter than 128 bytes.
  static std::string first_key(const std::string& page) {
    const bool is_leaf = page[0] == kIndexLeaf;
    const std::size_t pointer = is_leaf ? 8 : 12;
    const auto high = static_cast<unsigned char>(page[pointer]);
    const auto low = static_cast<unsigned char>(page[pointer + 1]);
    const std::size_t cell = high * 256U + low + (is_leaf ? 0 : 4);
    return page.substr(cell, 1 + static_cast<unsigned char>(page[cell]));
  }

  std::string path_;
  std::string bytes_;
};

}  // namespace store_tests

#endif  // TESTS_STORE_BENT_PAGES_H
