# Sourced by the commands beside it: a database of a few telling entries.

# sample NAME GROUP LINE ...: a new entry by the lines of a script.
sample() {
    local name=$1 group=$2
    shift 2
    printf '%s\n' "$@" save | "${samples_by[@]}" new --name "$name" --group "$group" - >/dev/null
}

# make_samples DAY NOLSCHED [OPTION ...]: their dates count from that day, so that most of them are still to run.
make_samples() {
    local day=$1 samples_by=("${@:2}")
    sample "Nightly Sweep" "North Cells" "pick schedule.cboPeriod Daily" "time schedule.dtpStartTime 02:00" \
        "click general.chkHom" "type hom.txtDuration 60"
    sample "Busy Hour Watch" "Core Sites" "pick schedule.cboPeriod Hourly" "pick schedule.cboFrequency 2" \
        "click schedule.cbExcludeDay(0)" "click schedule.cbExcludeDay(6)"
    sample "Weekly Drive Test" "South Cells" "pick schedule.cboPeriod Weekly" "pick schedule.cboDayName Friday" \
        "click rfc.chkOverride" "type rfc.txtDuration 120" "click general.chkPlm" "pick plm.fdocCBScenario Drive Test"
    sample "Month-end Report" "North Cells" "pick schedule.cboPeriod Monthly" "pick schedule.cboDayNum Last" \
        "time schedule.dtpStartTime 23:00"
    sample "Quarterly Audit" "Core Sites" "pick schedule.cboPeriod Monthly" "pick schedule.cboDayNum 2nd" \
        "pick schedule.cboDayName Monday" "pick schedule.cboFrequency 3" "click schedule.chkEndDate" \
        "date schedule.SSDEndDate $((${day%%-*} + 1))-12-31"
    sample "Acceptance Run" "South Cells" "date schedule.SSDStartDate $(date -d "$day + 18 days" +%F)" \
        "click vcsa.chkOverride" "type vcsa.txtDuration 30"
    # Never runs: the day was excluded before it was chosen.
    sample "Friday Probe" "North Cells" "pick schedule.cboPeriod Daily" "click schedule.cbExcludeDay(5)" \
        "pick schedule.cboPeriod Weekly" "pick schedule.cboDayName Friday"
}
