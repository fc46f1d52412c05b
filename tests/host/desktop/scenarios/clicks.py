"""The mouse on a card: circles complete tasks, all else opens links."""
from cards import CIRCLE, FIRST_ROW, FOCUS, NEXT_UP, TITLE, TRIAGE, record_links, row
from desktop import expect, wait_for


def a_click_on_a_circle_completes_the_task(desktop):
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)
    second = row(desktop, 1, 4)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")
    expect([(each["action"], each["todoID"]) for each in desktop.journal()] == [("completeTodo", "demo-1")],
           f"the journal has {desktop.journal()}")
    wait_for(lambda: desktop.snapshot()["tasks"][0].get("completedAt"), "the stamp in the snapshot")
    wait_for(lambda: row(desktop, 0, 3) == second, "the second task in the first row")


def two_clicks_on_one_circle_complete_one_task(desktop):
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)
    desktop.move(left + CIRCLE, top + FIRST_ROW)
    desktop.run("xdotool", "click", "--repeat", "2", "--delay", "1", "1")
    wait_for(desktop.journal, "a journal line")
    desktop.wait_until_still()
    expect({each["todoID"] for each in desktop.journal()} == {"demo-1"} and len(desktop.journal()) == 1,
           f"the journal has {desktop.journal()}")


def clicks_open_the_links_of_the_companion(desktop):
    links = record_links(desktop)
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + TITLE, top + FIRST_ROW)
    wait_for(lambda: links() == ["vantel://todo?id=demo-1"], "the task's link")
    desktop.click(left + 40, top + 130)
    wait_for(lambda: links() == ["vantel://todo?id=demo-1", "vantel://focus"], "the widget's own link")
    expect(desktop.journal() == [], "a click beside the circle completed a task")


def what_opens_a_link_is_told_nothing_of_the_widgets_toolkit(desktop):
    told = desktop.folder / "told"
    desktop.install_companion(f"env >{told}.new; mv {told}.new {told}")
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + TITLE, top + FIRST_ROW)
    wait_for(told.exists, "the opened link")
    names = {line.split("=")[0] for line in told.read_text().splitlines()}
    new = sorted(name for name in names if name.startswith("QT_") and name not in desktop.environment)
    expect(not new, f"it is told {new}")


def without_an_application_for_a_link_the_widget_says_so(desktop):
    desktop.show_sample_day()
    left, top, width, height = desktop.card(FOCUS)
    before = desktop.picture(left, top + 120, width, height - 120)
    desktop.click(left + 40, top + 100)
    wait_for(lambda: desktop.picture(left, top + 120, width, height - 120) != before, "a notice on the card")


def only_the_clicked_one_of_two_widgets_says_what_went_wrong(desktop):
    desktop.place((TRIAGE, "systemSmall"), (FOCUS, "systemSmall"), (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall"))
    desktop.show_sample_day()
    first, _, second, _ = (desktop.area(each) for each in desktop.placements())
    before, untouched = desktop.picture(*second), desktop.picture(*first)
    desktop.click(second[0] + 100, second[1] + 100)
    wait_for(lambda: desktop.picture(*second) != before, "a notice on the clicked card")
    desktop.wait_until_still()
    expect(desktop.picture(*first) == untouched, "the other card of the kind says it too")


def a_click_where_files_may_not_grow_is_taken_back(desktop):
    desktop.place((FOCUS, "systemMedium"), (NEXT_UP, "systemSmall"), (TRIAGE, "systemSmall"), (TRIAGE, "systemSmall"))
    process = desktop.show_sample_day("prlimit", "--fsize=0:0", "--")
    left, top, width, height = desktop.card(FOCUS)
    before, first = desktop.picture(left, top + 120, width, height - 120), row(desktop, 0, 4)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(lambda: desktop.picture(left, top + 120, width, height - 120) != before, "a notice on the card")
    wait_for(lambda: row(desktop, 0, 4) == first, "the row as before")
    expect(process.poll() is None, "the program ended")
    expect(desktop.journal() == [], f"the journal has {desktop.journal()}")
