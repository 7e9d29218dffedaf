# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Completion for bash: the options that the program's --help lists, their values, and drawings.
_fxhost() {
    # shellcheck disable=SC2034 # the functions of bash-completion use them
    local cur prev words cword split
    _init_completion -s || return
    case $prev in
    --profile) _filedir -d && return ;;
    --module | --script | --log) _filedir && return ;;
    --geometry | -s | --size) return ;;
    esac
    "$split" && return
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_parse_help "$1")" -- "$cur")
    else
        _filedir '@(dwg|dwt|bak)'
    fi
} && complete -F _fxhost fxhost fxthumbnail
