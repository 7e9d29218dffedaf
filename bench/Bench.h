// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace bench {

//! One of two ways to do the same. All parts may be empty but act, the one that is measured.
struct Side
{
    std::function<void()> prepare;
    std::function<void()> act;
    std::function<void()> end;
};

//! A line of the table: what takes how long, compared with something else that does the same.
struct Row
{
    double most = 0; //!< the largest ratio that is good enough
    Side ours;
    Side other;
    int runs = 25;    //!< of each side
    double scale = 1; //!< what the ratio is multiplied by
};

//! Makes a row and what it needs; one exists at a time.
using RowMaker = std::function<Row()>;

//! Runs a program of rows. Arguments: --runs N of each side; --only ours|other for a single run after one
//! that is not measured, in a function called measured() (for callgrind's --toggle-collect); names of rows,
//! all without; an unknown name is an error. Prints a line for each: name, medians in milliseconds, least
//! times, ratio of the medians, limit. \return the program's exit status
int run(const std::vector<std::pair<QString, RowMaker>> &rows);

} // namespace bench
