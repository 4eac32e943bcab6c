#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A document from the web that asks for more of it: the browser tab shows the document, and nothing else is fetched."""
import http.server
import sys
import threading

from desk import desk, wait_for

DOCUMENT = """<?xml version="1.0" encoding="UTF-8"?>
<?xml-stylesheet type="text/css" href="HOST/style.css"?>
<h:html xmlns:h="http://www.w3.org/1999/xhtml">
<h:head><h:link rel="stylesheet" href="HOST/link.css"/><h:script src="HOST/script.js"/>
<h:script>new Image().src = "HOST/inline"; document.location = "HOST/away";</h:script>
<h:meta http-equiv="refresh" content="0;url=HOST/refresh"/></h:head>
<h:body><h:h1>Spring order</h:h1><h:img src="HOST/image.png"/><h:iframe src="HOST/frame"/>
<h:iframe src="file:///etc/passwd"/><h:object data="HOST/object"/></h:body></h:html>"""


class Server(http.server.ThreadingHTTPServer):
    """Serves one document and remembers what it was asked for."""

    def __init__(self):
        super().__init__(("127.0.0.1", 0), Handler)
        self.asked = []
        self.host = f"http://127.0.0.1:{self.server_port}"
        threading.Thread(target=self.serve_forever, daemon=True).start()


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        self.server.asked.append(self.path)
        body = DOCUMENT.replace("HOST", self.server.host).encode()
        self.send_response(200)
        self.send_header("Content-Type", "application/xml; charset=utf-8")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


def main():
    server = Server()
    with desk() as person:
        address = f"{server.host}/order.xml"
        person.start([sys.argv[1], address], {**person.environment, "no_proxy": "127.0.0.1"})
        title = rf"Vantrel - \[{address}\]"
        person.window(title)

        def colours(part):
            # Asked by title each time: the window is made anew when it first shows a page of the web engine.
            return person.colours(person.find(title), part)

        heading, below_the_table = "600x60+210+160", "600x250+330+250"

        person.keys("F6", "F6", "Right", "shift+F6", "Right")  # the text takes the focus on the way
        wait_for("the table page", lambda: colours(below_the_table) == 1)
        person.keys("shift+F6", "Right")  # the table takes the focus, too
        # The heading's letters have many shades, and frames that stay empty have borders.
        wait_for("the shown page", lambda: colours(below_the_table) > 1 and colours(heading) > 8)
    assert server.asked == ["/order.xml"], f"fetched: {server.asked}"


if __name__ == "__main__":
    main()
