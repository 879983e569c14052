// The start of a run is held against this: a program that does nothing, linked with the language's runtime
// in the usual, dynamic way.

int main()
{
}
