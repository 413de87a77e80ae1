# SPDX-License-Identifier: MIT
from displays.x11_desk import X11Desk

BACKDROP = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-desktop" version="1.0">
  <property name="backdrop" type="empty">
    <property name="screen0" type="empty">
{monitors}
    </property>
  </property>
</channel>
"""
MONITOR = """      <property name="monitor{monitor}" type="empty">
        <property name="workspace0" type="empty">
          <property name="image-style" type="int" value="5"/>
          <property name="last-image" type="string" value="{picture}"/>
        </property>
      </property>"""
COMPOSITING = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty">
    <property name="use_compositing" type="bool" value="{composited}"/>
    <property name="workspace_count" type="int" value="4"/>
  </property>
</channel>
"""
CHANNELS = "config/xfce4/xfconf/xfce-perchannel-xml/"


class Row(X11Desk):
    name = "xfwm4_xfdesktop"
    title = "Xfce: xfwm4 + xfdesktop, composited"
    packages = ["xfwm4", "xfdesktop4"]
    needs = ["xfwm4", "xfdesktop"]
    manager = ("xfwm4",)
    replacement = ("xfwm4", "--replace")
    desktop_program = ("xfdesktop",)
    has_icons = True
    menu_button = 3
    composited = "true"

    def furnish(self):
        self.room.environment["XDG_CURRENT_DESKTOP"] = "XFCE"
        monitors = "\n".join(MONITOR.format(monitor=one, picture=self.room.desktop_picture())
                             for one in ("DUMMY0", "DUMMY1"))
        self.room.write(CHANNELS + "xfce4-desktop.xml", BACKDROP.format(monitors=monitors))
        self.room.write(CHANNELS + "xfwm4.xml", COMPOSITING.format(composited=self.composited))
