# A picture of the window: with a word it shows another page than without, and what cannot be done is said.
./velmarin --picture none.png --group Two || fail "no picture without a word"
./velmarin --picture word.png --group two banana || fail "no picture with a word (a group is found whatever its case)"
./velmarin --picture list.png --group Many cherry || fail "no picture of a list"
for picture in none word list; do
    [ "$(head -c 4 $picture.png | tail -c 3)" = PNG ] || fail "$picture.png is not a picture"
done
cp word.png before.png
! cmp -s none.png word.png || fail "the word changed nothing"

mkdir DictionaryFolder/Bad DictionaryFolder/Bad/DictionaryPreferences.txt
# refused REASON ARGUMENT...: no picture is made, and standard error says why.
refused() {
    local reason=$1 status=0
    shift
    ./velmarin --picture refused.png "$@" 2>said || status=$?
    [ $status -eq 2 ] || fail "$* ended with $status"
    grep -q "$reason" said || fail "$* is not explained: $(cat said)"
    [ ! -e refused.png ] || fail "$* made a picture"
}
refused 'no group called "Nowhere"' --group Nowhere banana
refused 'only be searched in a group' banana
./velmarin --picture bad.png --group Bad 2>said && grep -q 'Bad/DictionaryPreferences.txt" could not' said ||
    fail "preferences that cannot be read are not named: $(cat said)"
status=0
./velmarin --picture missing/x.png --group Two 2>said || status=$?
[ $status -eq 2 ] || fail "a picture that cannot be written ended with $status"
status=0
env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ./velmarin 2>said || status=$?
[ $status -eq 2 ] && grep -q 'no display' said || fail "a missing display is not said"
status=0
DISPLAY=:98765 ./velmarin 2>said || status=$?
[ $status -eq 2 ] && grep -q 'display :98765 could not be reached' said || fail "an unreachable display: $status"
status=0
(ulimit -f 1 && trap '' XFSZ && exec ./velmarin --picture word.png --group Two) 2>said || status=$?
[ $status -eq 2 ] && cmp -s word.png before.png || fail "a full disk breaks the old picture: $status $(cat said)"
[ "$(./velmarin --version | cut -d' ' -f1)" = velmarin ] || fail "no version"
