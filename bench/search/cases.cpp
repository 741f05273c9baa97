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
      {"ring_of_sums_16_domain", "ring_of_sums", "n=16;strength=domain_propagation", kAll},
      {"ring_of_sums_16_bounds", "ring_of_sums", "n=16;strength=bounds_propagation", kAll},
      {"ring_of_products_14_domain", "ring_of_products", "n=14;strength=domain_propagation", kAll},
      {"ring_of_products_14_bounds", "ring_of_products", "n=14;strength=bounds_propagation", kAll},
      {"chain_of_differences_11_domain", "chain_of_differences", "n=11;strength=domain_propagation",
       kAll},
      {"chain_of_differences_11_bounds", "chain_of_differences", "n=11;strength=bounds_propagation",
       kAll},
      {"row_of_remainders_12_domain", "row_of_remainders", "n=12;strength=domain_propagation",
       kAll},
      {"row_of_remainders_12_bounds", "row_of_remainders", "n=12;strength=bounds_propagation",
       kAll},
      {"row_of_extrema_10_domain", "row_of_extrema", "n=10;strength=domain_propagation", kAll},
      {"row_of_extrema_10_bounds", "row_of_extrema", "n=10;strength=bounds_propagation", kAll},
      {"prime_square_100_domain", "prime_square", "n=100;strength=domain_propagation", kAll},
      {"prime_square_100_bounds", "prime_square", "n=100;strength=bounds_propagation", kAll},
      {"product_square_100_domain", "product_square", "n=100;strength=domain_propagation", kAll},
      {"product_square_100_bounds", "product_square", "n=100;strength=bounds_propagation", kAll},
      {"euler_brick_300_domain", "euler_brick", "n=300;strength=domain_propagation", kAll},
      {"euler_brick_300_bounds", "euler_brick", "n=300;strength=bounds_propagation", kAll},
      {"triangular_numbers_200_domain", "triangular_numbers",
       "n=200;k=3;strength=domain_propagation", kAll},
      {"triangular_numbers_200_bounds", "triangular_numbers",
       "n=200;k=3;strength=bounds_propagation", kAll},
      {"sidon_set_60_domain", "sidon_set", "n=60;k=7;strength=domain_propagation", kAll},
      {"sidon_set_60_bounds", "sidon_set", "n=60;k=7;strength=bounds_propagation", kAll},
  };
  return cases;
}

}  // namespace kiv::bench
