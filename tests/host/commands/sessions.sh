# What the sessions call. $books is the folder "books", or the URI that stands for it where the run is on the server.

# The program; "books" is wherever they are.
qmhost() {
    for word; do shift; [ "$word" = books ] && word=$books; set -- "$@" "$word"; done
    "$qmhost" "$@"
}

# Asks the books through the store's own shell, which knows nothing of this system. A server wants names of two cases in
# quotes, and shows numbers and booleans in its own way.
sql() {
    if [ "$books" = books ]; then
        printf "PRAGMA key = 'quintel';\n%s;\n" "$1" | sqlcipher -batch books/QmAccount.mdb | sed '1{/^ok$/d}' | plain
    else
        printf '%s;\n' "$1" | perl -0pe "s/('[^']*')|\b(?=\w*[a-z])(?=\w*[A-Z])(\w+)/defined \$1 ? \$1 : qq(\"\$2\")/ge;
            s/\bifnull\b/coalesce/g" | psql -Atq "${books%/}" 2>&1 | plain | case "$1" in
            "SELECT *"*) sed 's/|[^|]*$//' ;;  # the hidden column
            *) cat ;;
        esac
    fi
}
plain() { perl -pe 's/(?<![^|])(-?\d+)\.0(?=\||$)/$1/g; s/(?<![^|])t(?=\||$)/1/g; s/(?<![^|])f(?=\||$)/0/g'; }

# trigger NAME WHEN TABLE CONDITION WHAT, where $refuse fails the statement
if [ "$books" = books ]; then
    refuse="SELECT RAISE(ABORT, 'no')"
    trigger() { sql "CREATE TRIGGER $1 $2 ON $3 WHEN $4 BEGIN $5; END"; }
    no_trigger() { sql "DROP TRIGGER $1"; }
    last_number() { sql "UPDATE sqlite_sequence SET seq = $2 WHERE name = '$1'"; }
    being_written() { sql "BEGIN IMMEDIATE; ROLLBACK" 2>&1 | grep -q locked; }
else
    refuse="RAISE 'no'"
    trigger() {
        sql "CREATE FUNCTION $1() RETURNS trigger LANGUAGE plpgsql AS \$\$BEGIN $5; RETURN NEW; END\$\$;
            CREATE TRIGGER $1 $2 ON $3 FOR EACH ROW WHEN ($4) EXECUTE FUNCTION $1()"
    }
    last_number() { psql -qc "UPDATE qm_counter SET last = $2 WHERE name = '$1'" "${books%/}"; }
    being_written() { psql -Atc "SELECT 1 FROM pg_locks WHERE locktype = 'advisory' AND granted" "${books%/}" | grep -q 1; }
    no_trigger() { sql "SET client_min_messages = error; DROP FUNCTION $1 CASCADE"; }
fi

# All that the books hold, kept and compared.
held() {
    if [ "$books" = books ]; then cat books/QmAccount.mdb; else pg_dump --exclude-table-data=qm_host "${books%/}" | grep -v restrict; fi
}
keep() { held > kept; }
unchanged() { held | cmp - kept; }

take_away() {
    if [ "$books" = books ]; then rm -r books; else psql -qc "DROP DATABASE $name" "${uri%/*}/postgres"; fi
}

# A server of the session's own, $own: own_server [OPTION...]; it goes with the session.
own_server() {
    env -u QM_TEST_SERVER "$tests/support/server" start "$PWD/own" "$@" > started && own=$(cat own)
    trap 'env -u QM_TEST_SERVER "$tests/support/server" stop "$PWD/own"; [ -z "${disk:-}" ] || { umount "$disk"; rmdir "$disk"; }' EXIT
}
# A small disk of that server's, $disk, to which its database `firm` goes; where none can be mounted the session is skipped.
small_disk() {
    disk=$(mktemp -d)
    mount -t tmpfs -o "size=$1,mode=755" tmpfs "$disk" 2> mounted || { echo "skipped: no disk can be mounted"; exit 77; }
    mkdir "$disk/space" && chown --reference="$(psql -Atc "SHOW data_directory" "${own}postgres")" "$disk/space"
    psql -qc "CREATE TABLESPACE small LOCATION '$disk/space'" -c "ALTER DATABASE firm SET TABLESPACE small" "${own}postgres"
}
