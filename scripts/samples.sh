# Sourced by the commands beside it: a database of a few telling entries.

# make_samples DAY NOLSCHED [OPTION ...]: their dates count from that day, so that most of them are still to run.
make_samples() {
    local day=$1 nolsched=("${@:2}")
    sample() { "${nolsched[@]}" new "$@" >/dev/null 2>&1; }
    sample name="Nightly Sweep" group="North Cells" period=Daily at=02:00 hom=on hom.duration=60
    sample name="Busy Hour Watch" group="Core Sites" period=Hourly every=2 exclude="Saturday, Sunday"
    sample name="Weekly Drive Test" group="South Cells" period=Weekly on=Friday rfc=on rfc.duration=120 plm=on \
        plm.scenario="Drive Test"
    sample name="Month-end Report" group="North Cells" period=Monthly on="Last Day" at=23:00
    sample name="Quarterly Audit" group="Core Sites" period=Monthly on="2nd Monday" every=3 end=$((${day%%-*} + 1))-12-31
    sample name="Acceptance Run" group="South Cells" start="$(date -d "$day + 18 days" +%F)" vcsa=on vcsa.duration=30
    # Never runs: its only day is excluded.
    sample name="Friday Probe" group="North Cells" period=Weekly on=Friday exclude=Friday
}
