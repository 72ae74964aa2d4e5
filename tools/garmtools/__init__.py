"""What ./run and ./test are made of: Wine prefixes, a private CUPS, the runners of test programs."""
