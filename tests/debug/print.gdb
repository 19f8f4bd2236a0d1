set width 0
set print address off
set host-charset UTF-8
break Stop
run
up
print numbers
print nopoints
print texts
print notext
print handle
print holder
print nohandle
print noholder
