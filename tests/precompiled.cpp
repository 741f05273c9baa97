// Has the headers that nearly every test includes compiled once for all of them. Nothing runs it.
