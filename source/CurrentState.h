// CurrentState: an object frozen to what the host shows of it, through the host's "current
// state to object" command: a generator becomes the polygons of its cache, recursively.
#pragma once

class BaseDocument;
class BaseObject;

// The first object of the command's answer, the caller's; null when the command fails. The
// object itself is left as it was.
BaseObject* currentStateOf(BaseObject* object, BaseDocument* doc);
