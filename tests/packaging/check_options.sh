#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks that a program's man page and its completion have the options that its --help lists:
# check_options.sh PROGRAM MAN-PAGE COMPLETION
set -eo pipefail
program=$1 page=$2 completion=$3

# shellcheck disable=SC1091 # of the package bash-completion
source /usr/share/bash-completion/bash_completion
# shellcheck source=packaging/completion.bash
source "$completion"

options() { grep -oE -- '(^|[^-a-z])--?[a-z][a-z-]*' | grep -oE -- '-.*' | sort -u; }

listed=$("$program" --help | options)
# shellcheck disable=SC2034 # bash's variables for a completion
COMP_WORDS=("$program" -) COMP_CWORD=1 COMP_LINE="$program -" COMP_POINT=${#COMP_LINE}
_fxhost "$program"
status=0
diff <(echo "$listed") <(sed 's/\\-/-/g' "$page" | options) || { echo "these options differ in $page" && status=1; }
# One of the two forms of an option is enough.
diff <(grep -e -- <<<"$listed") <(printf '%s\n' "${COMPREPLY[@]}" | options) || {
    echo "these options differ in $completion" && status=1
}
exit "$status"
