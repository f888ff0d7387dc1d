#!/usr/bin/env python3
"""phone_page.py SCRIPT_PROGRAM PICTURES: opens the page for a phone in a browser without a window, at a phone's size, in
a light and in a dark scheme, and works with it as a thumb does: ticks, a reload, another design, Clear ticks. Pictures
go to the folder PICTURES. Skipped with a word where there is no chromium."""

import base64
import json
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import urllib.request

WIDTH, HEIGHT = 390, 844
PATIENCE = 60  # seconds
TURNS = 5

FIELD = """type txtDefault(8) "10"
type txtInfo(0) "Dunn & Sons <north forty>, the long one by the lane"
type txtInfo(2) "900"
type txtInfo(3) "2.0"
type txtInfo(4) "South of the lane, riser 3"
type txtInfo(5) "E"
fill Grid1 1 0
0	10.00	1320	6.67	15	7/8	1	10	6.67
200	10.00	1320	6.67	15	7/8	1	10	6.67
400	10.00	1320	6.67	15	13/16	1	10	6.67
600	10.00	1320	6.67	15	3/4	2	10	6.67
end
click mnuDesignField
{then}
dialog "{path}"
click mnuExportPhone
"""
STALE = 'type txtInfo(2) "850"\nanswer Yes'


class Trouble(Exception):
    pass


class Socket:
    """A WebSocket to the browser's debugging port, as much of one as it takes (RFC 6455)."""

    def __init__(self, url):
        host, path = url.removeprefix("ws://").split("/", 1)
        name, port = host.split(":")
        self.file = socket.create_connection((name, int(port)), timeout=PATIENCE)
        key = base64.b64encode(os.urandom(16)).decode()
        self.file.sendall((f"GET /{path} HTTP/1.1\r\nHost: {host}\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                           f"Sec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n\r\n").encode())
        answer = b""
        while b"\r\n\r\n" not in answer:
            answer += self.file.recv(1)
        if b" 101 " not in answer.split(b"\r\n")[0]:
            raise Trouble("the browser took no connection")
        self.count = 0
        self.events = []

    def take(self, count):
        data = b""
        while len(data) < count:
            part = self.file.recv(count - len(data))
            if not part:
                raise Trouble("the browser went away")
            data += part
        return data

    def send(self, text):
        payload = text.encode()
        mask = os.urandom(4)
        size = len(payload)
        head = b"\x81" + (bytes([0x80 | size]) if size < 126 else b"\xfe" + size.to_bytes(2, "big") if size < 65536
                          else b"\xff" + size.to_bytes(8, "big"))
        self.file.sendall(head + mask + bytes(b ^ mask[i % 4] for i, b in enumerate(payload)))

    def receive(self):
        text = b""
        while True:
            first, second = self.take(2)
            size = second & 0x7F
            if size >= 126:
                size = int.from_bytes(self.take(2 if size == 126 else 8), "big")
            text += self.take(size)
            if first & 0x80:
                return json.loads(text)

    def call(self, method, **parameters):
        self.count += 1
        number = self.count
        self.send(json.dumps({"id": number, "method": method, "params": parameters}))
        while True:
            message = self.receive()
            if message.get("id") == number:
                if "error" in message:
                    raise Trouble(f"{method}: {message['error']}")
                return message["result"]
            self.events.append(message)


class Browser:
    def __init__(self, program, folder):
        self.folder = folder
        self.process = subprocess.Popen(
            [program, "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
             "--disable-background-networking", "--remote-debugging-port=0", f"--user-data-dir={folder}",
             "about:blank"], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        for line in self.process.stderr:
            if "DevTools listening on ws://" in line:
                port = line.split("ws://")[1].split("/")[0].split(":")[1]
                break
        else:
            raise Trouble("the browser did not start")
        with urllib.request.urlopen(f"http://127.0.0.1:{port}/json") as answer:
            pages = json.load(answer)
        self.page = Socket(next(page["webSocketDebuggerUrl"] for page in pages if page["type"] == "page"))
        for part in ("Page", "Runtime", "Network", "Log"):
            self.page.call(part + ".enable")
        self.page.call("Emulation.setDeviceMetricsOverride", width=WIDTH, height=HEIGHT, deviceScaleFactor=2, mobile=True)
        # A phone in a field.
        self.page.call("Network.emulateNetworkConditions", offline=True, latency=0, downloadThroughput=0,
                       uploadThroughput=0)

    def scheme(self, name):
        self.page.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": name}])

    def open(self, path):
        self.load("Page.navigate", url=pathlib.Path(path).resolve().as_uri())

    def reload(self):
        self.load("Page.reload")

    def load(self, method, **parameters):
        """The page that was there is marked, so that the one that follows is known."""
        self.ask("window.former = true")
        self.page.call(method, **parameters)
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            try:
                if self.ask("!window.former && document.readyState === 'complete'"):
                    return
            except Trouble:  # between two pages there is none to ask
                pass
            time.sleep(0.05)
        raise Trouble(f"{method}: the page did not come")

    def ask(self, expression):
        answer = self.page.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in answer:
            raise Trouble(f"{expression}: {answer['exceptionDetails']['text']}")
        return answer["result"].get("value")

    def touch(self, selector, index=0):
        """The middle of an element, scrolled into view."""
        x, y = self.ask(f"""(() => {{ const e = document.querySelectorAll({json.dumps(selector)})[{index}];
            e.scrollIntoView({{block: 'center'}}); const r = e.getBoundingClientRect();
            return [r.x + r.width / 2, r.y + r.height / 2]; }})()""")
        for kind in ("mousePressed", "mouseReleased"):
            self.page.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)

    def picture(self, path):
        shot = self.page.call("Page.captureScreenshot", format="png", captureBeyondViewport=False)
        pathlib.Path(path).write_bytes(base64.b64decode(shot["data"]))

    def wrong(self):
        """What the page complained of, and every request for anything but the page."""
        wrong = []
        for event in self.page.events:
            if event.get("method") == "Runtime.exceptionThrown":
                wrong.append(event["params"]["exceptionDetails"]["text"])
            if event.get("method") == "Log.entryAdded" and event["params"]["entry"]["level"] == "error":
                wrong.append(event["params"]["entry"]["text"])
            if event.get("method") == "Network.requestWillBeSent" and event["params"]["request"]["url"].startswith("http"):
                wrong.append(event["params"]["request"]["url"])
        return wrong

    def close(self):
        self.process.terminate()
        self.process.wait(PATIENCE)


# Luminance and contrast as the Web Content Accessibility Guidelines have them.
CONTRAST = """(() => {
  const lum = c => { const v = c.match(/[\\d.]+/g).slice(0, 3).map(x => x / 255)
      .map(x => x <= 0.03928 ? x / 12.92 : ((x + 0.055) / 1.055) ** 2.4);
      return 0.2126 * v[0] + 0.7152 * v[1] + 0.0722 * v[2]; };
  const back = e => { for (; e; e = e.parentElement) { const c = getComputedStyle(e).backgroundColor;
      if (!/^rgba.*, 0\\)$/.test(c)) return c; } return 'rgb(255, 255, 255)'; };
  let worst = 21;
  for (const e of document.querySelectorAll('h1, p, .size, .where, .count, .tick, th, td, li, h2, button')) {
    const a = lum(getComputedStyle(e).color), b = lum(back(e));
    worst = Math.min(worst, (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05));
  }
  return worst; })()"""


def expect(what, told, wanted):
    if told != wanted:
        raise Trouble(f"{what}: {told!r}, not {wanted!r}")
    print(f"{what}: {told!r}")


def write_page(script_program, folder, name, then=""):
    path = pathlib.Path(folder) / name
    subprocess.run([script_program], input=FIELD.format(path=path, then=then), text=True, check=True,
                   stdout=subprocess.DEVNULL, cwd=folder)
    return path


def check_stale(browser, page, pictures):
    """Figures that are not those of the fields are marked above everything that is to be done."""
    for scheme in ("light", "dark"):
        browser.scheme(scheme)
        browser.open(page)
        expect("mark", browser.ask("document.querySelector('#stale b').textContent"), "NOT RE-CALCULATED")
        expect("mark above the holes", browser.ask("document.querySelector('#stale').getBoundingClientRect().bottom <= "
                                                   "document.querySelector('#runs').getBoundingClientRect().top"), True)
        expect("wider than the phone", browser.ask("document.documentElement.scrollWidth > innerWidth"), False)
        contrast = browser.ask(CONTRAST)
        if contrast < 7:
            raise Trouble(f"contrast of the marked page in the {scheme} scheme: {contrast}")
        browser.picture(pictures / f"phone-{scheme}-stale.png")


def expect_kept(what, browser, load, ticks, wanted):
    """Loads a page that is to show what was kept. A browser now and then gives a page that has just come what stood in
    its storage some moments before: then the page is loaded once more."""
    for _ in range(TURNS):
        load()
        if browser.ask(ticks) == wanted:
            break
        time.sleep(1)
    expect(what, browser.ask(ticks), wanted)


def check(browser, page, other, pictures):
    ticks = "[...document.querySelectorAll('#runs input')].map(b => b.checked ? 1 : 0).join('')"
    told = "document.getElementById('progress').textContent"
    browser.scheme("light")
    browser.open(page)
    expect("name", browser.ask("document.querySelector('h1').textContent"),
           "Dunn & Sons <north forty>, the long one by the lane")
    expect("runs", browser.ask("document.querySelectorAll('#runs li').length"), 3)
    expect("wider than the phone", browser.ask("document.documentElement.scrollWidth > innerWidth"), False)
    expect("smallest box to touch, 44 or more",
           browser.ask("Math.min(...[...document.querySelectorAll('#runs label, button')].map(e => "
                       "e.getBoundingClientRect().height)) >= 44"), True)
    expect("smallest letters, 18 or more",
           browser.ask("Math.min(...[...document.querySelectorAll('main :not(input)')].map(e => "
                       "parseFloat(getComputedStyle(e).fontSize))) >= 18"), True)
    expect("nothing done", browser.ask(told), "0 of 3 done")
    expect("no mark", browser.ask("document.querySelector('#stale')"), None)
    browser.picture(pictures / "phone-light.png")
    browser.touch("#runs label", 1)
    expect("one ticked", browser.ask(ticks), "010")
    expect("one done", browser.ask(told), "1 of 3 done")
    for scheme in ("light", "dark"):
        browser.scheme(scheme)
        contrast = browser.ask(CONTRAST)
        if contrast < 7:
            raise Trouble(f"contrast in the {scheme} scheme: {contrast}")
        print(f"contrast in the {scheme} scheme: {contrast:.1f}")
        browser.ask("scrollTo(0, 0)")
        browser.picture(pictures / f"phone-{scheme}-ticked.png")
    expect_kept("after a reload", browser, browser.reload, ticks, "010")
    expect("told after a reload", browser.ask(told), "1 of 3 done")
    expect_kept("another design", browser, lambda: browser.open(other), ticks, "000")
    expect_kept("back again", browser, lambda: browser.open(page), ticks, "010")
    browser.touch("#runs label", 0)
    browser.touch("#runs label", 2)
    expect("all done", browser.ask(told), "All 3 done")
    browser.scheme("light")
    browser.ask("window.confirm = () => true")
    browser.touch("#clear")
    expect("cleared", browser.ask(ticks), "000")
    browser.picture(pictures / "phone-foot.png")
    expect_kept("cleared for good", browser, browser.reload, ticks, "000")
    # A browser that keeps nothing says so, and the boxes work.
    browser.page.call("Page.addScriptToEvaluateOnNewDocument",
                      source="Object.defineProperty(window, 'localStorage', {get() { throw new Error('no'); }});")
    browser.open(page)
    expect("told that nothing is kept", browser.ask("document.getElementById('unkept').hidden"), False)
    browser.touch("#runs label", 0)
    expect("ticked all the same", browser.ask(told), "1 of 3 done")
    expect("complaints and requests", browser.wrong(), [])


def main():
    script_program, pictures = str(pathlib.Path(sys.argv[1]).resolve()), pathlib.Path(sys.argv[2]).resolve()
    program = shutil.which("chromium") or shutil.which("chromium-browser")
    if program is None:
        print("skipped: there is no chromium")
        return 0
    pictures.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        # The same holes under another name are another sheet.
        page = write_page(script_program, folder, "north.html")
        other = pathlib.Path(folder) / "south.html"
        other.write_text(page.read_text().replace("north forty", "south forty"))
        browser = Browser(program, folder + "/browser")
        try:
            check(browser, page, other, pictures)
            check_stale(browser, write_page(script_program, folder, "stale.html", STALE), pictures)
        except Trouble as trouble:
            browser.picture(pictures / "trouble.png")
            print(f"FAILED: {trouble}")
            return 1
        finally:
            browser.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
