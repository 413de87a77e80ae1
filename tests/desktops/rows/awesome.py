# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk

CONFIGURATION = """
local awful = require("awful")
require("awful.autofocus")
awful.screen.connect_for_each_screen(function(s)
    awful.tag({ "1", "2", "3", "4" }, s, awful.layout.suit.floating)
end)
awful.rules.rules = {
    { rule = {}, properties = { focus = awful.client.focus.filter, raise = true,
                                screen = awful.screen.preferred } },
}
client.connect_signal("request::activate", awful.ewmh.activate)
client.connect_signal("mouse::enter", function(c) end)
root.keys(awful.key({ "Mod1" }, "Tab", function() awful.client.focus.byidx(1) end))
"""


class Row(X11Desk):
    name = "awesome"
    title = "awesome"
    packages = ["awesome"]
    needs = ["awesome"]
    manager = ("awesome", "-c", "rc.lua")
    replacement = ("awesome", "-c", "rc.lua", "--replace")

    def furnish(self):
        self.room.write("rc.lua", CONFIGURATION)
