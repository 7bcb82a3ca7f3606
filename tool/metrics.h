// Statistics and numbers of objects, for Prometheus.
#pragma once

#include "tool/output.h"
#include "tool/values.h"

#include <span>
#include <string>
#include <string_view>

namespace tool {

enum class Exposition
{
    PrometheusText,
    OpenMetrics
};

struct MetricsTerms
{
    Exposition exposition = Exposition::PrometheusText;
    std::string file;  // empty: standard output
    std::string state; // the file that the state is compared with; empty: none
};

// Reads all there is; of receive-side scaling, what the targets have. What cannot be read is counted, and is no failure.
// Throws Failure where it cannot be written, and Misuse if the file of the state makes no sense.
void export_metrics(
    std::span<const std::string> targets, const MetricsTerms& terms, AddressOrder order, Output& output);

// The name of the metric that counts the records of a list; empty: there is none.
std::string_view metric_of_list(std::string_view operation);

} // namespace tool
