#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes the diagrams of the pages in docs/: make.sh. Needs Debian's python3-matplotlib.
set -eu
cd "$(dirname "$0")"
for page in formats adjustment blocks threads; do
    "${PYTHON:-/usr/bin/python3}" "$page.py"
done
