#include "bench/search/cases.h"

namespace kiv::bench {

const std::vector<SearchCase>& SearchCases() {
  using enum SearchCase::Wanted;
  using enum SearchCase::Library;
  static const std::vector<SearchCase> cases = {
      {"queens_8_all", "queens", "n=8", kAll},
      {"queens_10_all", "queens", "n=10", kAll},
      {"queens_100", "queens", "n=100", kFirst},
      {"queens_12_disequalities", "queens_disequalities", "n=12", kAll},
      {"send_more_money", "send_more_money", "", kAll},
      {"magic_square_4_all", "magic_square", "n=4", kAll},
      {"golomb_ruler_9", "golomb_ruler", "n=9", kOptimum},
      {"langford_8_all", "langford", "n=8", kAll},
      {"all_interval_10_all", "all_interval", "n=10", kAll},
      {"quasigroup_12", "quasigroup", "n=12", kAll},
      {"latin_completion_20", "latin_completion", "n=20", kFirst},
      {"job_shop_6x6", "job_shop", "", kOptimum},
      {"backpack", "backpack", "", kOptimum},
      {"pythagorean_1000", "pythagorean", "n=1000", kAll},
      {"products_300", "products", "n=300", kAll},
      {"powers_300", "powers", "n=300", kAll},
      {"remainders_200000", "remainders", "n=200000", kAll},
      {"queens_10_all_own", "queens", "n=10", kAll, kOwn},
      {"queens_100_own", "queens", "n=100", kFirst, kOwn},
      {"queens_1000_own", "queens", "n=1000", kFirst, kOwn},
      {"send_more_money_own", "send_more_money", "", kAll, kOwn},
      {"magic_square_4_all_own", "magic_square", "n=4", kAll, kOwn},
      {"golomb_ruler_10_own", "golomb_ruler", "n=10", kOptimum, kOwn},
      {"langford_8_all_own", "langford", "n=8", kAll, kOwn},
      {"all_interval_12_all_own", "all_interval", "n=12", kAll, kOwn},
      {"quasigroup_12_own", "quasigroup", "n=12", kAll, kOwn},
      {"latin_completion_20_own", "latin_completion", "n=20", kFirst, kOwn},
      {"pythagorean_1000_own", "pythagorean", "n=1000", kAll, kOwn},
      {"products_300_own", "products", "n=300", kAll, kOwn},
      {"remainders_200000_own", "remainders", "n=200000", kAll, kOwn},
  };
  return cases;
}

}  // namespace kiv::bench
