# Sourced by the scripts, before they install or build anything.

# Prints the comment at the head of the script.
usage() {
    sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"
}

# Ends the script: says in one line what cannot be done.
refuse() {
    echo "$(basename "$0"): $1 (see --help)" >&2
    exit 2
}

# Refuses what is no regular expression.
check_filter() {
    local status=0
    grep -qE -e "$1" /dev/null 2>/dev/null || status=$?
    [ "$status" -lt 2 ] || refuse "no regular expression: $1"
}

# Refuses all but natural numbers.
check_number() {
    [[ $1 =~ ^[0-9]+$ ]] || refuse "no number: $1"
}

case ${1:-} in -h | --help)
    usage
    exit 0
    ;;
esac
