# SPDX-License-Identifier: Apache-2.0
"""A desktop portal that answers at once in place of a person, and remembers what it was asked for.
Programs use it if the environment has GDK_DEBUG=portals."""
import os
import threading

from gi.repository import Gio, GLib

NAME, PATH = 'org.freedesktop.portal.Desktop', '/org/freedesktop/portal/desktop'
ENVIRONMENT = {'GDK_DEBUG': 'portals'}
INTERFACES = '''
<node>
  <interface name="org.freedesktop.portal.FileChooser">
    <method name="SaveFile">
      <arg name="parent" type="s" direction="in"/>
      <arg name="title" type="s" direction="in"/>
      <arg name="options" type="a{sv}" direction="in"/>
      <arg name="handle" type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Email">
    <method name="ComposeEmail">
      <arg name="parent" type="s" direction="in"/>
      <arg name="options" type="a{sv}" direction="in"/>
      <arg name="handle" type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Print">
    <method name="PreparePrint">
      <arg name="parent" type="s" direction="in"/>
      <arg name="title" type="s" direction="in"/>
      <arg name="settings" type="a{sv}" direction="in"/>
      <arg name="setup" type="a{sv}" direction="in"/>
      <arg name="options" type="a{sv}" direction="in"/>
      <arg name="handle" type="o" direction="out"/>
    </method>
    <method name="Print">
      <arg name="parent" type="s" direction="in"/>
      <arg name="title" type="s" direction="in"/>
      <arg name="file" type="h" direction="in"/>
      <arg name="options" type="a{sv}" direction="in"/>
      <arg name="handle" type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Inhibit">
    <method name="Inhibit">
      <arg name="parent" type="s" direction="in"/>
      <arg name="flags" type="u" direction="in"/>
      <arg name="options" type="a{sv}" direction="in"/>
      <arg name="handle" type="o" direction="out"/>
    </method>
  </interface>
</node>
'''


class Portal:
    """`results` holds what a person would choose, by method: the results of the portal's signal
    "Response". `calls` has a pair for each call: the method, and its arguments; in place of a file
    descriptor stand the bytes of its file. It answers on a thread of its own, because programs may
    wait for it while the test waits for them."""

    def __init__(self):
        self.calls = []
        self.results = {'PreparePrint': {'token': GLib.Variant('u', 7)}}
        self.bus = Gio.DBusConnection.new_for_address_sync(
            os.environ['DBUS_SESSION_BUS_ADDRESS'],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.loop = GLib.MainLoop(GLib.MainContext())
        self.thread = threading.Thread(target=self._serve)
        self.thread.start()
        self.bus.call_sync('org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus', 'RequestName',
                           GLib.Variant('(su)', (NAME, 0)), None, Gio.DBusCallFlags.NONE, -1, None)

    def close(self):
        """Ends the connection and with it the portal."""
        self.loop.quit()
        self.thread.join()
        self.bus.close_sync(None)

    def _serve(self):
        self.loop.get_context().push_thread_default()
        for interface in Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces:
            self.bus.register_object(PATH, interface, self._answer, None, None)
        self.loop.run()

    def arguments(self, method):
        """Those of the last call of a method, or None."""
        return next((arguments for called, arguments in reversed(self.calls) if called == method), None)

    def _answer(self, _bus, sender, _path, _interface, method, parameters, invocation):
        descriptors = invocation.get_message().get_unix_fd_list()
        files = [read(descriptors.get(i)) for i in range(descriptors.get_length())] if descriptors else []
        self.calls.append((method, [*parameters.unpack(), *files]))
        options = parameters.unpack()[-1]
        handle = f'{PATH}/request/{sender[1:].replace(".", "_")}/{options.get("handle_token", "inhibited")}'
        invocation.return_value(GLib.Variant('(o)', (handle,)))
        if method != 'Inhibit':  # lasts until its handle is closed
            self.bus.emit_signal(sender, handle, 'org.freedesktop.portal.Request', 'Response',
                                 GLib.Variant('(ua{sv})', (0, self.results.get(method, {}))))


def read(descriptor):
    """The bytes of a file, which it closes."""
    with os.fdopen(descriptor, 'rb') as file:
        return file.read()
