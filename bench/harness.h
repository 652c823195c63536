// How a benchmark is made: rotating inputs, calls as a host makes them, and an answer, by which
// the report sees that two benchmarks side by side did the same work.
#pragma once

#include <benchmark/benchmark.h>
#include <kezlib.h>

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <tuple>
#include <vector>

namespace bench {

// Of a single input a branch predictor learns every outcome, and of 64 lists of 100 entries too.
constexpr std::size_t input_count = 64;
constexpr std::size_t inputs_of(std::size_t n) {
  return std::max<std::size_t>(2'000'000 / n, 2);
}

template <std::size_t n>
using Floats = std::array<float, n>;
template <typename Input>
using Inputs = std::array<Input, input_count>;

// The same numbers in every run.
class Random {
 public:
  template <std::floating_point Number>
  Number between(Number low, Number high) {
    return std::uniform_real_distribution<Number>(low, high)(engine_);
  }
  template <std::integral Number>
  Number between(Number low, Number high) {
    return std::uniform_int_distribution<Number>(low, high)(engine_);
  }
  template <typename Number>
  void fill(std::span<Number> numbers, Number low, Number high) {
    for (Number& number : numbers) number = between(low, high);
  }

 private:
  std::mt19937 engine_{1};
};

template <std::size_t n>
Inputs<Floats<n>> random_inputs(float low, float high) {
  Inputs<Floats<n>> inputs;
  Random random;
  for (auto& input : inputs) random.fill(std::span<float>(input), low, high);
  return inputs;
}

// Weighted by place, so that the order tells.
template <typename Number>
double digest(std::span<Number> numbers) {
  double sum = 0;
  for (std::size_t i = 0; i < numbers.size(); ++i)
    sum += static_cast<double>(i + 1) * static_cast<double>(numbers[i]);
  return sum;
}

template <typename... Numbers>
double digest(const std::tuple<Numbers...>& numbers) {
  return std::apply([](auto... number) { return (static_cast<double>(number) + ...); }, numbers);
}

// Times run(k) for k = 0 .. inputs - 1 in turn. The answer is that of the first `asked` of them.
template <typename Run>
void rotate(benchmark::State& state, std::size_t inputs, std::size_t asked, Run&& run) {
  double answer = 0;
  for (std::size_t k = 0; k < asked; ++k) answer += digest(run(k));
  benchmark::DoNotOptimize(run);
  std::size_t k = 0;
  for (auto _ : state) {
    auto&& result = run(k);
    benchmark::DoNotOptimize(result);
    k = k + 1 < inputs ? k + 1 : 0;
  }
  state.counters["answer"] = answer;
}

// Registers run(input, output), where output is a tuple that stays in place, like the variables of
// a host.
template <typename Output, typename Input, typename Run>
void call(const char* name, const Inputs<Input>& inputs, Run run) {
  benchmark::RegisterBenchmark(name, [inputs, run](benchmark::State& state) {
    Output output{};
    rotate(state, inputs.size(), inputs.size(), [&](std::size_t k) -> Output& {
      run(inputs[k], output);
      return output;
    });
  });
}

// A call of a routine with the addresses of all inputs, then of all outputs.
template <auto routine>
constexpr auto by_reference = [](const auto& input, auto& output) {
  std::apply(
      [&](const auto&... in) {
        std::apply([&](auto&... out) { routine(&in..., &out...); }, output);
      },
      input);
};

// Registers make(n)(k) for each n, with k below inputs_of(n).
template <typename Make>
void each_size(const std::string& name, const std::vector<std::int64_t>& sizes, Make make,
               std::size_t asked = 1) {
  auto* const registered =
      benchmark::RegisterBenchmark(name.c_str(), [make, asked](benchmark::State& state) {
        const auto n = static_cast<std::size_t>(state.range(0));
        rotate(state, inputs_of(n), std::min(asked, inputs_of(n)), make(n));
      });
  for (const std::int64_t size : sizes) registered->Arg(size);
}

void register_geometry();
void register_points();
void register_polygons();
void register_lists();
void register_searches();

}  // namespace bench
