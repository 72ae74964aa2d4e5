"""What all tests in Python share."""

import signal


def pytest_configure():
    """Being told to end is like Ctrl-C: servers are ended and folders removed on the way out."""
    signal.signal(signal.SIGTERM, signal.default_int_handler)
