# Progress of long scripts, to be sourced. While steps run, their names, counts and times are shown: on a terminal on one
# line that is updated every second, in a log on a new line every fifteen seconds.
#
#   progress_start FOLDER          shows the running steps, which it keeps in FOLDER, until the script ends
#   run_step NAME LOG COMMAND...   runs COMMAND with its output in LOG; returns the command's status
#   timed_step NAME LOG COMMAND... the same; prints the time taken, and the end of LOG when the command fails

progress_folder=
progress_monitor=

# The last count in a log: ninja's "[12/79]", ctest's " 12/15 Test", libFuzzer's "#4096", "12 of 80 files".
progress_of() { # LOG
    grep -aoE '^\[[0-9]+/[0-9]+\]|^ *[0-9]+/[0-9]+ Test|^#[0-9]+|[0-9]+ of [0-9]+ [a-z]+' "$1" 2>/dev/null | tail -n 1 |
        sed -E 's/^\[([0-9]+)\/([0-9]+)\]$/\1 of \2 files/; s/^ *([0-9]+)\/([0-9]+) Test$/\1 of \2 tests/
            s/^#([0-9]+)$/\1 inputs/; s/.*/[&]/'
}

progress_line() {
    local note name log started line=
    for note in "$progress_folder"/*.running; do
        [ -e "$note" ] || continue
        { read -r started; read -r log; } <"$note" || continue
        name=$(basename "$note" .running)
        line+="${line:+   }$name $(($(date +%s) - started)) s $(progress_of "$log")"
    done
    printf '%s' "$line"
}

progress_show() {
    local line shown=0
    while sleep 1; do
        line=$(progress_line)
        if [ -t 2 ]; then
            printf '\r\033[K%.*s' "${COLUMNS:-110}" "$line" >&2
        elif [ -n "$line" ] && [ $((SECONDS - shown)) -ge 15 ]; then
            printf '... %s\n' "$line" >&2
            shown=$SECONDS
        fi
    done
}

progress_stop() {
    [ -z "$progress_monitor" ] || kill "$progress_monitor" 2>/dev/null || true
    progress_monitor=
    [ ! -t 2 ] || printf '\r\033[K' >&2
}

progress_start() { # FOLDER
    progress_folder=$1
    mkdir -p "$progress_folder"
    rm -f "$progress_folder"/*.running
    progress_show &
    progress_monitor=$!
    disown  # excludes it from the script's own wait
    trap progress_stop EXIT
}

run_step() { # NAME LOG COMMAND...
    local name=$1 log=$2 status=0
    shift 2
    printf '%s\n%s\n' "$(date +%s)" "$log" >"$progress_folder/$name.running"
    "$@" >"$log" 2>&1 || status=$?
    rm -f "$progress_folder/$name.running"
    return "$status"
}

timed_step() { # NAME LOG COMMAND...
    local name=$1 log=$2 started=$SECONDS status=0
    run_step "$@" || status=$?
    [ ! -t 2 ] || printf '\r\033[K' >&2
    if [ "$status" -eq 0 ]; then
        printf '%-16s %4d s\n' "$name" $((SECONDS - started))
    else
        tail -n 60 "$log" >&2
        printf '%-16s %4d s  failed; see %s\n' "$name" $((SECONDS - started)) "$log" >&2
    fi
    return "$status"
}
