// Open-hashed name tables built at compile time: every bucket points at its
// own contiguous run of entries, kept in the order of the source list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvinel::locale {

// The entries of a name list regrouped by bucket.
template <typename Entry, std::size_t N, std::size_t Buckets>
struct GroupedNames {
  std::array<Entry, N> entries{};
  std::array<int32_t, Buckets> first{};
  std::array<int32_t, Buckets> count{};
  int32_t largest_bucket = 0;
};

// Stable counting sort of `list` by bucket_of(entry): within a bucket the
// entries keep their list order, so the first listed name wins a tie.
template <std::size_t Buckets, typename Entry, std::size_t N, typename BucketOf>
consteval GroupedNames<Entry, N, Buckets> group_by_bucket(const std::array<Entry, N> &list,
                                                          BucketOf bucket_of) {
  GroupedNames<Entry, N, Buckets> grouped{};
  for (const Entry &entry : list) ++grouped.count[bucket_of(entry)];
  int32_t start = 0;
  for (std::size_t b = 0; b < Buckets; ++b) {
    grouped.first[b] = start;
    start += grouped.count[b];
    if (grouped.count[b] > grouped.largest_bucket) grouped.largest_bucket = grouped.count[b];
  }
  std::array<int32_t, Buckets> next = grouped.first;
  for (const Entry &entry : list) grouped.entries[next[bucket_of(entry)]++] = entry;
  return grouped;
}

// The bucket array over a grouped list with static storage duration.
template <typename Bucket, typename Entry, std::size_t N, std::size_t Buckets>
constexpr std::array<Bucket, Buckets> bucket_array(
    const GroupedNames<Entry, N, Buckets> &grouped) {
  std::array<Bucket, Buckets> buckets{};
  for (std::size_t b = 0; b < Buckets; ++b) {
    buckets[b].entries = grouped.count[b] == 0 ? nullptr : &grouped.entries[grouped.first[b]];
    buckets[b].count = grouped.count[b];
  }
  return buckets;
}

// Upper-cases "a".."z" in place; other bytes stay.
inline void upcase_ascii_letters(char *text, int32_t length) {
  for (int32_t i = 0; i < length; ++i) {
    if (text[i] >= 'a' && text[i] <= 'z') text[i] = static_cast<char>(text[i] - ('a' - 'A'));
  }
}

}  // namespace corvinel::locale
