// What the benchmarks share: medians of two things that take turns, and the table of ratios with
// their limits.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Milliseconds that `work` takes.
inline double Time(const std::function<void()> &work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const auto end = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::milli>(end - start).count();
}

struct TPair {
    double ours;
    double plain;
};

/// Medians of both; they take turns, so that a busy machine slows both.
inline TPair Measure(int times, const std::function<double()> &ours,
                     const std::function<double()> &plain) {
    std::vector<double> a;
    std::vector<double> b;
    for (int i = 0; i < times; ++i) {
        a.push_back(ours());
        b.push_back(plain());
    }
    return {Median(a), Median(b)};
}

/// Prints the table; what is over its limit is marked.
class TTable {
public:
    TTable() {
        std::printf("%-58s %10s %10s %8s %8s\n", "measured", "ours", "plain", "result", "limit");
    }
    void Ratio(const std::string &what, TPair figures, double limit) {
        const double ratio = figures.ours / figures.plain;
        Line(what, figures, ratio, limit, ratio > limit);
    }
    /// Shows the ratio, but it is our milliseconds that have the limit.
    void Milliseconds(const std::string &what, TPair figures, double limit) {
        Line(what + ", ms", figures, figures.ours / figures.plain, limit, figures.ours > limit);
    }
    void Difference(const std::string &what, TPair figures, double limit) {
        const double difference = figures.ours - figures.plain;
        Line(what, figures, difference, limit, difference > limit);
    }
    bool AnyOver() const { return over_; }

private:
    void Line(const std::string &what, TPair figures, double result, double limit, bool over) {
        over_ = over_ || over;
        std::printf("%-58s %10.3f %10.3f %8.2f %8.2f%s\n", what.c_str(), figures.ours,
                    figures.plain, result, limit, over ? "  OVER" : "");
        std::fflush(stdout);
    }
    bool over_ = false;
};
