import sys, time
sys.path.insert(0,'/tmp/work/e2e/tests')
from desk import *
with Desk() as d:
    d.start('/tmp/work/e2e/torvale')
    w=d.find("frame","TORVALE")
    def walk(n,depth):
        print(" "*depth,n.get_role_name(),repr(n.get_name()),n.get_state_set().contains(Atspi.StateType.SHOWING), n.get_child_count())
        if n.get_role_name() in("table","combo box","list") : return
        for i in range(n.get_child_count()): walk(n.get_child_at_index(i),depth+1)
    for i in range(w.get_child_count()):
        c=w.get_child_at_index(i)
        if c.get_role_name()!="filler": walk(c,0)
    t=d.find("table","Survey sheet")
    print(t.get_table_iface().get_n_rows(), t.get_table_iface().get_n_columns())
    print([cell(t,0,c) for c in range(8)],[cell(t,1,c) for c in range(8)])
    f=d.find("text","GPM"); d.click(f); d.type("40"); time.sleep(.3)
    print(text_of(f))
    d.keys("Tab"); d.type("3"); time.sleep(.3)
    print(text_of(d.find("text","Target Head")))
    d.keys("alt+f"); time.sleep(.5); d.picture("/tmp/work/e2e/b.png")
    for x in d.windows(): walk(x,0) if x.get_role_name()!="frame" else print("frame", x.get_name())
