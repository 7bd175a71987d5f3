# Shows where long work is, to be sourced. Each step writes to a log; while steps run, what runs, how far it has come and
# for how long stands on one line of the terminal, or, where there is none, on a line every fifteen seconds.
#
#   progress_start FOLDER    shows the steps that leave a note in FOLDER, until the script ends
#   run_step NAME LOG COMMAND...   runs COMMAND with its output in LOG; its status is the command's

progress_folder=
progress_monitor=

# The last count in a log: ninja's "[12/79]", ctest's " 12/15 Test", "12 of 80 files".
progress_of() { # LOG
    grep -aoE '^\[[0-9]+/[0-9]+\]|^ *[0-9]+/[0-9]+ Test|[0-9]+ of [0-9]+ [a-z]+' "$1" 2>/dev/null | tail -n 1 |
        sed -E 's/^ *([0-9]+\/[0-9]+) Test$/[\1 tests]/; s/^([0-9]+ of [0-9]+ [a-z]+)$/[\1]/'
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
    disown  # a wait of the script's does not wait for it
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
