// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

// The measurements of service_bench. Each prints one figure per line: its name and a
// number. Times are in milliseconds and memory in MiB unless the name says otherwise.
// The arguments are those of the command line after the measurement's name. A
// measurement throws an exception when something fails.
using Arguments = std::vector<std::string>;

void openFigures(const Arguments& arguments);
void crowdFigures(const Arguments& arguments);
void searchFigures(const Arguments& arguments);
void paintFigures(const Arguments& arguments);
void callFigures(const Arguments& arguments);
void frameFigures(const Arguments& arguments);
void idleFigures(const Arguments& arguments);
void zoomFigures(const Arguments& arguments);

void printFigure(const std::string& name, double value);

// The quantile q (0 to 1) of the values. REQUIRES: there is at least one value.
double quantile(std::vector<double> values, double q);
inline double median(const std::vector<double>& values) {
    return quantile(values, 0.5);
}

// The time of the monotonic clock in milliseconds.
double now();
