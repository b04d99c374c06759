// Empty: the precompiled header of the tests that use Qt Widgets belongs to this source's target.
