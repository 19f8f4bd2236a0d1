"""Shows arrays, strings and handles of the asset tools in gdb by what they hold.

In gdb, or in .gdbinit:  source <here>/asset_tools_gdb.py
"""
import gdb
import gdb.printing


class Array:
    """TArray: the elements in use."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "{} of {} (capacity {})".format(
            self.value.type.strip_typedefs().name, int(self.value["NumItems"]), int(self.value["Capacity"]))

    def children(self):
        for i in range(int(self.value["NumItems"])):
            yield "[{}]".format(i), self.element(self.value["Items"][i])

    def element(self, item):
        return item

    def display_hint(self):
        return "array"


class PointerArray(Array):
    """TPArray: the elements that its pointers lead to."""

    def element(self, item):
        return item.dereference() if int(item) != 0 else item


class String:
    """CSys_String: its text, as a wide literal."""

    def __init__(self, value):
        self.text = value["text"]

    def to_string(self):
        return self.text.lazy_string() if int(self.text) != 0 else 'L""'


class Handle:
    """TResourceHandle: the resource, and how many hold it."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        kind = "empty handle" if int(self.value["object"]) == 0 else "handle"
        return "{}, refCount {}".format(kind, int(self.value["refCount"]))

    def children(self):
        if int(self.value["object"]) != 0:
            yield "object", self.value["object"].dereference()


class HoldingReference:
    """TResourceHandleR: the handle it holds."""

    def __init__(self, value):
        self.handle = value["handle"]

    def to_string(self):
        return "holds nothing" if int(self.handle) == 0 else "holds"

    def children(self):
        if int(self.handle) != 0:
            yield "handle", self.handle.dereference()


def make_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("asset_tools")
    printers.add_printer("TArray", "^TArray<.*>$", Array)
    printers.add_printer("TPArray", "^TPArray<.*>$", PointerArray)
    printers.add_printer("CSys_String", "^CSys_String$", String)
    printers.add_printer("TResourceHandle", "^TResourceHandle<.*>$", Handle)
    printers.add_printer("TResourceHandleR", "^TResourceHandleR<.*>$", HoldingReference)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), make_printers(), replace=True)
