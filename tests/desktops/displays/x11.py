# SPDX-License-Identifier: MIT
"""The windows, pixels and clicks of an X display."""
from Xlib import X, Xatom, display, error
from Xlib.protocol import event

from base.picture import DESKTOP, Picture
from base.waiting import prepare, wait_until

OUR_CLASS = "tavi"


class X11:
    """A client that looks and acts as people and their programs do."""

    def __init__(self, room):
        self.room = room
        self.connection = display.Display(room.environment["DISPLAY"])
        self.connection.set_error_handler(lambda *_: None)
        self.root = self.connection.screen().root

    # Looking

    def picture(self):
        area = self.root.get_geometry()
        image = self.root.get_image(0, 0, area.width, area.height, X.ZPixmap, 0xFFFFFFFF)
        return Picture.of_bgrx(area.width, area.height, image.data)

    def property(self, window, name):
        """The value of a property; None without it, or without the window."""
        try:
            found = window.get_full_property(self.connection.intern_atom(name),
                                             X.AnyPropertyType)
        except error.XError:
            return None
        return found.value if found else None

    def atoms(self, window, name):
        return [self.connection.get_atom_name(one) for one in self.property(window, name) or []]

    def window(self, number):
        return self.connection.create_resource_object("window", number)

    def children(self, window):
        try:
            return window.query_tree().children
        except error.XError:
            return []

    def class_of(self, window):
        value = self.property(window, "WM_CLASS")
        if not value:
            return ""
        text = value.decode("latin-1") if isinstance(value, bytes) else value
        return text.replace("\0", " ").strip()

    def is_ours(self, window):
        return OUR_CLASS in self.class_of(window).lower()

    def holds_ours(self, window, depth=3):
        """True of our windows and of the frames around them."""
        return self.is_ours(window) or depth > 0 and any(
            self.holds_ours(child, depth - 1) for child in self.children(window))

    def windows_of_type(self, kind):
        """The windows of a type that are on the screen, in no order."""
        found = []

        def visit(window, depth):
            for child in self.children(window):
                if f"_NET_WM_WINDOW_TYPE_{kind}" in self.atoms(child, "_NET_WM_WINDOW_TYPE"):
                    if self.is_viewable(child):
                        found.append(child)
                elif depth:
                    visit(child, depth - 1)

        visit(self.root, 2)
        return found

    def windows_of_other_desktops(self):
        """Those of the desktop's own program."""
        return [one for one in self.windows_of_type("DESKTOP") if not self.is_ours(one)]

    def is_viewable(self, window):
        try:
            return window.get_attributes().map_state == X.IsViewable
        except error.XError:
            return False

    def under_pointer(self, x, y):
        """The windows that a click at that place goes to, the outermost first. Asks the server,
        which knows the shapes that windows take input in."""
        self.root.warp_pointer(int(x), int(y))
        found, window = [], self.root
        while True:
            try:
                window = window.query_pointer().child
            except error.XError:
                return found
            if not window:
                return found
            found.append(window)

    def names_under_pointer(self, x, y):
        chain = self.under_pointer(x, y)
        return [self.class_of(one) or f"0x{one.id:x}" for one in chain] or ["the root window"]

    def focused(self):
        """The window with the keyboard, and the one that the manager calls active."""
        focus = self.connection.get_input_focus().focus
        active = self.property(self.root, "_NET_ACTIVE_WINDOW")
        return [one for one in (focus if hasattr(focus, "id") else None,
                                self.window(active[0]) if active and active[0] else None) if one]

    def menus(self):
        """How many menus are open: windows that no manager manages, and their types."""
        count, whole = 0, self.root.get_geometry()
        for child in self.children(self.root):
            try:
                attributes = child.get_attributes()
                area = child.get_geometry()
            except error.XError:
                continue
            if (attributes.map_state == X.IsViewable and attributes.win_class == X.InputOutput
                    and area.width > 40 and area.height > 40 and not self.holds_ours(child)
                    and (area.width, area.height) != (whole.width, whole.height)):
                count += 1
        return count

    # Acting

    def pointer(self, x, y):
        self.room.ask("xdotool", "mousemove", int(x), int(y))

    def click(self, x, y, button=1):
        self.room.ask("xdotool", "mousemove", int(x), int(y), "click", button)

    def press(self, *keys):
        self.room.ask("xdotool", "key", *keys)

    def send_to_root(self, window, kind, *data):
        message = event.ClientMessage(window=window, client_type=self.connection.intern_atom(kind),
                                      data=(32, (list(data) + [0] * 5)[:5]))
        self.root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.connection.sync()

    def number(self, name):
        value = self.property(self.root, name)
        return value[0] if value else None

    def go_to_workspace(self, number):
        self.send_to_root(self.root, "_NET_CURRENT_DESKTOP", number)

    def show_desktop(self, on):
        self.send_to_root(self.root, "_NET_SHOWING_DESKTOP", int(on))

    def supports(self, name):
        supported = self.property(self.root, "_NET_SUPPORTED") or []
        return self.connection.intern_atom(name) in supported

    def is_managed(self):
        check = self.number("_NET_SUPPORTING_WM_CHECK")
        return bool(check) and self.property(self.window(check),
                                             "_NET_SUPPORTING_WM_CHECK") is not None

    def is_composited(self):
        owner = self.connection.get_selection_owner(self.connection.intern_atom("_NET_WM_CM_S0"))
        return owner != X.NONE

    def await_manager(self):
        """Some managers announce themselves before they listen, and what is mapped in between is
        left waiting. When one manages a window, it listens."""
        prepare(self.is_managed, "the window manager")

        def manages():
            probe = OpenedWindow(self, (500, 300, 120, 90), 0x808080)
            try:
                return wait_until(probe.is_managed, 1)
            finally:
                probe.close()

        prepare(manages, "a window manager that shows windows")

    def set_resources(self, text):
        """Those that all programs read when they start."""
        self.root.change_property(Xatom.RESOURCE_MANAGER, Xatom.STRING, 8, text.encode())
        self.connection.sync()

    def paint_root(self, colour=DESKTOP):
        """The picture of the root window, set as programs for that do."""
        setter = display.Display(self.room.environment["DISPLAY"])
        root = setter.screen().root
        setter.set_close_down_mode(X.RetainPermanent)
        area = root.get_geometry()
        pixmap = root.create_pixmap(area.width, area.height, setter.screen().root_depth)
        context = pixmap.create_gc(foreground=colour)
        pixmap.fill_rectangle(context, 0, 0, area.width, area.height)
        root.change_attributes(background_pixmap=pixmap)
        for name in ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID"):
            root.change_property(setter.intern_atom(name), Xatom.PIXMAP, 32, [pixmap.id])
        root.clear_area()
        setter.sync()
        setter.close()


class OpenedWindow:
    """A window of one colour, as an application has it."""

    def __init__(self, x11, area, colour, full_screen=False, dock=None):
        self.x11, self.colour = x11, colour
        x, y, width, height = area
        screen = x11.connection.screen()
        self.window = x11.root.create_window(
            x, y, width, height, 0, screen.root_depth, X.InputOutput, X.CopyFromParent,
            background_pixel=colour, event_mask=X.StructureNotifyMask)
        self.window.set_wm_class("sample", "Sample" if dock is None else "Panel")
        self.window.set_wm_name("Sample")
        self.window.set_wm_normal_hints(flags=1 | 2 | 4 | 8, x=x, y=y, width=width, height=height)
        if full_screen:
            self.set_atoms("_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN")
        if dock is not None:
            self.set_atoms("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK")
            self.set_numbers("_NET_WM_STRUT_PARTIAL", dock)
            self.set_numbers("_NET_WM_STRUT", dock[:4])
        self.window.map()
        x11.connection.sync()

    def set_atoms(self, name, *values):
        atom = self.x11.connection.intern_atom
        self.window.change_property(atom(name), Xatom.ATOM, 32, [atom(one) for one in values])

    def set_numbers(self, name, values):
        self.window.change_property(self.x11.connection.intern_atom(name), Xatom.CARDINAL, 32,
                                    values)

    def is_managed(self):
        return self.x11.property(self.window, "WM_STATE") is not None

    def is_viewable(self):
        return self.x11.is_viewable(self.window)

    def area(self):
        """Where it is on the screen."""
        size = self.window.get_geometry()
        place = self.x11.root.translate_coords(self.window, 0, 0)
        return place.x, place.y, size.width, size.height

    def centre(self):
        x, y, width, height = self.area()
        return x + width // 2, y + height // 2

    def activate(self):
        self.x11.send_to_root(self.window, "_NET_ACTIVE_WINDOW", 2, X.CurrentTime)

    def close(self):
        self.window.destroy()
        self.x11.connection.sync()
