-- How much of the year and of the month has passed, in percent.
function conky_zeph_year() return math.floor(tonumber(os.date('%j')) * 100 / 365) end
function conky_zeph_month() return math.floor(tonumber(os.date('%d')) * 100 / 31) end
