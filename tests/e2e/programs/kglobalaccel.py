"""Stands on the session bus as KDE's service of global shortcuts, with those of one component."""
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

SUPER_SHIFT = 0x10000000 | 0x02000000
COMPONENT = "org.kde.spectacle.desktop"
shortcuts = {
    "RectangularRegionScreenShot": [SUPER_SHIFT | ord("4"), 0x01000009],
    "FullScreenScreenShot": [0x02000000 | 0x01000009],
}


class Service(dbus.service.Object):
    @dbus.service.method("org.kde.KGlobalAccel", in_signature="as", out_signature="aas")
    def allActionsForComponent(self, action):
        return [[COMPONENT, name, "Tool", name] for name in shortcuts] if action[0] == COMPONENT else []

    @dbus.service.method("org.kde.KGlobalAccel", in_signature="as", out_signature="ai")
    def shortcut(self, action):
        return shortcuts.get(str(action[1]), []) if action[0] == COMPONENT else []

    @dbus.service.method("org.kde.KGlobalAccel", in_signature="asai", out_signature="")
    def setForeignShortcut(self, action, keys):
        shortcuts[str(action[1])] = [int(key) for key in keys]


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
service = Service(bus, "/kglobalaccel")
name = dbus.service.BusName("org.kde.kglobalaccel", bus)
print("ready")
sys.stdout.flush()
GLib.MainLoop().run()
