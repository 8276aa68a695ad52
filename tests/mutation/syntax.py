"""Questions to clang's syntax tree."""

from clang.cindex import CursorKind, TypeKind

LOOPS = (CursorKind.FOR_STMT, CursorKind.WHILE_STMT, CursorKind.DO_STMT,
         CursorKind.CXX_FOR_RANGE_STMT)
JUMPS = (CursorKind.RETURN_STMT, CursorKind.CONTINUE_STMT, CursorKind.BREAK_STMT)
FUNCTIONS = (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR,
             CursorKind.DESTRUCTOR, CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE,
             CursorKind.LAMBDA_EXPR)
SCOPES = (CursorKind.NAMESPACE, CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL,
          CursorKind.CLASS_TEMPLATE, CursorKind.LINKAGE_SPEC, CursorKind.UNEXPOSED_DECL)


def unwrapped(cursor):
    """The expression inside of conversions that are not written, and of parentheses."""
    while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        cursor = children[0]
    return cursor


def is_expression(cursor):
    return cursor.kind.is_expression()


def is_number(type_):
    kind = type_.get_canonical().kind
    return kind == TypeKind.ENUM or TypeKind.BOOL.value < kind.value <= TypeKind.INT128.value


def is_scoped_enum(type_):
    return type_.kind == TypeKind.ENUM and type_.get_declaration().is_scoped_enum()


def matters(statement):
    """Whether it is seen when a statement runs: not of a declaration that only joins texts."""
    if statement.kind in JUMPS:
        return False
    if statement.kind != CursorKind.DECL_STMT:
        return True
    return any(calls_us(c) for c in statement.walk_preorder() if c.kind == CursorKind.CALL_EXPR)


def calls_us(call):
    target = call.referenced
    return (target is not None and target.kind != CursorKind.CONSTRUCTOR and
            target.location.file is not None and "/c++/" not in target.location.file.name)


def is_constant_evaluated(function):
    """Whether the words before a function's body say that the compiler may run it."""
    for token in function.get_tokens():
        if token.spelling in ("{", ";"):
            return False
        if token.spelling in ("constexpr", "consteval"):
            return True
    return False
