# To be sourced: the exported names in the header and in the module definition.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

declared_exports() {
    grep -oE '^(int32_t|void|bool|BrindleChar\*) [a-z_]+\(' "$root/include/brindle.h" | grep -oE '[a-z_]+\($' | tr -d '(' | sort
}

listed_exports() {
    grep -oE '^    [a-z_]+$' "$root/src/frame/brindle.def" | tr -d ' ' | sort
}

fail() {
    echo "$0: $*" >&2
    exit 1
}

same_names() { # DECLARED NAMES SOURCE-OF-NAMES
    diff <(echo "$1") <(echo "$2") || fail "the header and $3 do not have the same names"
}
