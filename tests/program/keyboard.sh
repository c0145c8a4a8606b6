# A reader's session by real keys: search, step, fit, quit, and find everything again; then the end of the session,
# and a kill in the middle.
preferences=DictionaryFolder/Two/DictionaryPreferences.txt

start() {
    ./velmarin --group Two 2>said &
    program=$!
    until_true xdotool search --onlyvisible --name '^Pair'
    window=$(xdotool search --onlyvisible --name '^Pair' | tail -1)
    xdotool windowactivate --sync "$window"
}

start
xdotool type --delay 30 banana
xdotool key --delay 50 Return ctrl+Right ctrl+Up ctrl+Down Down ctrl+shift+Right
xdotool windowmove "$window" 60 70
xdotool windowsize "$window" 900 850
until_true grep -qP '^\d+\t\d+\t900\t' Preferences/MainWindow
xdotool key ctrl+q
wait $program || fail "the program ended with $?: $(cat said)"
[ "$(cat $preferences)" = "$(printf 'Pair\t0\t\nB\t2\nA\t0')" ] || fail "the preferences are not as they were: $(cat $preferences)"

start
eval "$(xdotool getwindowgeometry --shell "$window")"
[ "$WIDTH" -eq 900 ] || fail "the width did not come back: $WIDTH"
rm $preferences
kill -TERM $program
wait $program || fail "the end of the session is an error: $?"
[ "$(wc -l <$preferences)" -eq 3 ] || fail "the end of the session left the preferences unwritten"

start
xdotool type --delay 30 cherry
xdotool key Return
kill -9 $program
wait $program || true
[ "$(wc -l <$preferences)" -eq 3 ] || fail "a kill left the preferences torn"
[ "$(wc -l <Preferences/MainWindow)" -eq 1 ] || fail "a kill left the placement torn"
