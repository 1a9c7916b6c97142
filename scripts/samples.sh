# Sourced by the commands beside it: a database of a few telling entries.

# sample NAME GROUP LINE ...: a new entry by the lines of a script.
sample() {
    local name=$1 group=$2
    shift 2
    printf '%s\n' "$@" save | "${samples_by[@]}" new --name "$name" --group "$group" - >/dev/null
}

# make_samples NOLSCHED [OPTION ...]
make_samples() {
    local samples_by=("$@")
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
        "date schedule.SSDEndDate 2027-12-31"
    sample "Acceptance Run" "South Cells" "date schedule.SSDStartDate 2026-03-20" "click vcsa.chkOverride" \
        "type vcsa.txtDuration 30"
}
