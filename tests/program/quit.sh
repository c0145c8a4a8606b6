# A run ends within seconds of SIGTERM, whatever it waits for, with what can be saved.
mkdir DictionaryFolder/Bad DictionaryFolder/Bad/DictionaryPreferences.txt
box_is_open() { xdotool search --name '^Velmarin$' | grep -q .; }
ends() {
    local started=$SECONDS status=0
    kill -TERM $run
    wait $run || status=$?
    [ $status -eq 0 ] || fail "$1 ended with $status"
    [ $((SECONDS - started)) -le 5 ] || fail "$1 took $((SECONDS - started)) s"
}
./velmarin --group Bad 2>said &
run=$!
until_true box_is_open
ends "an open message box"

./velmarin --group Two 2>said &
run=$!
until_true xdotool search --name Pair
rm DictionaryFolder/Two/DictionaryPreferences.txt
mkdir DictionaryFolder/Two/DictionaryPreferences.txt
ends "preferences that cannot be written"
grep -q 'DictionaryPreferences.txt" could not be written' said || fail "what was not saved is not told: $(cat said)"
