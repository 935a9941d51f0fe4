#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

// One line a case and contender, as soon as it is measured: case,contender,median_ms,ratio_to_floor.
// Names are "case/contender"; the first contender of a case is its floor.
class Report : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override;
    void ReportRuns(const std::vector<Run> &runs) override;

private:
    std::map<std::string, double> m_floors; // by case, milliseconds
};
