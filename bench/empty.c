/* A shared object with next to nothing in it: the limit of what loading one costs. */
__attribute__((visibility("default"))) int lumozeph_empty(void);

int lumozeph_empty(void)
{
    return 0;
}
