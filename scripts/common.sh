# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Sourced by the other scripts: the packages that each kind of work needs, and steps of one line each.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD
export jobs
jobs=$(nproc)
export DEBIAN_FRONTEND=noninteractive

declare -A packages=(
    [build]="g++ cmake make pkg-config binutils"
    [player]="libavformat-dev libavcodec-dev libavutil-dev libavfilter-dev libavdevice-dev libswresample-dev libswscale-dev libsdl2-dev libpng-dev libass-dev libcli11-dev"
    [tests]="libgtest-dev googletest libsimde-dev xvfb xauth xdotool x11-apps fontconfig fonts-dejavu-core"
    [bench]="libbenchmark-dev libyuv-dev"
    [clang]="clang python3"
    [lint]="clang clang-format clang-tidy python3 git"
)

is_installed()
{
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

as_root()
{
    if [[ $(id -u) == 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo --preserve-env=DEBIAN_FRONTEND "$@"
    else
        echo "root rights are needed for: $*" >&2
        return 1
    fi
}

# A mirror that is busy for a moment must not fail the run.
with_retries()
{
    local attempt
    for attempt in 1 2 3; do
        "$@" && return
        sleep $((attempt * 5))
    done
    return 1
}

# need GROUP...: installs what the groups' packages lack; fails where one of them cannot be installed.
need()
{
    local group package missing=()
    if ! command -v apt-get >/dev/null; then
        echo "no apt-get here: the packages of '$*' are taken as present"
        return
    fi
    for group in "$@"; do
        for package in ${packages[$group]}; do
            is_installed "$package" || missing+=("$package")
        done
    done
    ((${#missing[@]})) || return 0
    # A marker in the temporary folder of this run: the package lists are fetched once a run.
    if [[ ! -e $scratch/lists-are-fresh ]]; then
        with_retries as_root apt-get -q update || return
        touch "$scratch/lists-are-fresh"
    fi
    with_retries as_root apt-get -q -y --no-install-recommends install "${missing[@]}"
}

# step NAME TITLE COMMAND...: the command's output goes to build/log/NAME.log and is shown only where it fails; where it
# passes, what it said by not_done is shown. The outcome is left in step_status. Never call it in a condition: the shell
# would ignore 'set -e' inside the command.
readonly skipped=77
step()
{
    local name=$1 title=$2 start=$SECONDS
    shift 2
    local log=$root/build/log/$name.log
    mkdir -p "$root/build/log"
    printf '%-10s %s ... ' "$name" "$title"
    set +e
    (
        set -e
        "$@"
    ) >"$log" 2>&1 </dev/null
    step_status=$?
    set -e
    case $step_status in
        0)
            echo "ok, $((SECONDS - start)) s"
            sed -n 's/^not done: /           &/p' "$log"
            ;;
        "$skipped") echo "skipped: $(tail -n 1 "$log")" ;;
        *)
            echo "FAILED (status $step_status), $((SECONDS - start)) s; the end of $log:"
            tail -n 80 "$log"
            ;;
    esac
}

# not_done WHAT: something that a reader of the command's title could think was done.
not_done() { echo "not done: $*"; }

must()
{
    step "$@"
    ((step_status == 0)) || exit 1
}

# For packages that only widen the checks: without them the step is skipped, in one line.
need_or_skip()
{
    need "$1" || { echo "cannot install: ${packages[$1]}"; exit "$skipped"; }
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
